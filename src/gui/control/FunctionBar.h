#pragma once

#include <QWidget>

#include <array>

class FunctionButton;
class WzCustomStyle;

/// The bar over the lower edge: the logo button, and ten soft buttons that show what FunctionController tells
/// them. An index above 9 is ignored.
class FunctionBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 72;
    /// To the edges of the screen.
    static constexpr int kGap = 4;
    static constexpr quint32 kButtons = 10;

    FunctionBar(const WzCustomStyle& style, QWidget* parent);

    void setUpFunctionButton(quint32 index, const QString& text, const QIcon& icon);
    void setSuperscriptText(quint32 index, const QString& text);
    void setWordWrap(quint32 index, bool wrap);
    void setPointSize(quint32 index, int points);
    void setButtonEnabled(quint32 index, bool enabled);
    void setButtonSelected(quint32 index, bool selected);
    /// @p keepRoom: some button of the row carries marks, and labels stay clear of their place.
    void setIndicatorNumIcons(quint32 index, int count, bool keepRoom);
    void clearFunctionButton(quint32 index);
    void clearFunctionBar();
    void toggleVelmoraButtonAsBackArrow(bool backArrow);

    /// Shows that the button was pressed by a key.
    void flash(quint32 index);
    /// Null when there is none.
    FunctionButton* button(quint32 index) const;
    FunctionButton& velmoraButton() const { return *m_velmoraButton; }

signals:
    void buttonPressed(quint32 index);
    void velmoraButtonPressed();
    void used();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const WzCustomStyle& m_style;
    FunctionButton* m_velmoraButton;
    std::array<FunctionButton*, kButtons> m_buttons{};
};
