#pragma once

#include <QLineEdit>

class WzCustomStyle;

/// A line to enter text into, high enough for a finger, on a field that is darker than the panel around it,
/// or lighter in the light theme.
class EntryLine : public QLineEdit {
    Q_OBJECT
public:
    static constexpr int kHeight = 72;

    /// Of the field, for others that are to look like it.
    static QColor fieldColour(const WzCustomStyle& style);

    EntryLine(const WzCustomStyle& style, const QString& text, QWidget* parent);
    ~EntryLine() override;

    /// While it has the focus the ten buttons enter these characters into it, and delete.
    void offerKeys(const QString& characters) { m_characters = characters; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void applyTheme();

    const WzCustomStyle& m_style;
    QString m_characters;
};
