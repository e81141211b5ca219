#pragma once

#include <QWidget>

class EntryLine;
class QPushButton;
class WzCustomStyle;

/// Asks for a name, by keyboard or by keys on the screen. Escape cancels. It deletes itself when it is
/// answered.
class NameEntry : public QWidget {
    Q_OBJECT
public:
    static constexpr int kMaximumLength = 40;

    NameEntry(const WzCustomStyle& style, const QString& question, const QString& name, QWidget* parent);
    ~NameEntry() override;

    /// Shows it, and gives it the focus and the function bar.
    void ask();

signals:
    /// Neither empty nor with blanks around it.
    void accepted(QString name);
    void cancelled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void customEvent(QEvent* event) override;

private:
    void accept();
    void cancel();
    void end();
    void offerTriggers();

    const WzCustomStyle& m_style;
    EntryLine* m_edit;
    QPushButton* m_cancel;
    QPushButton* m_set;
};
