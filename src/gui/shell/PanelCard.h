#pragma once

#include <QWidget>

class WzCustomStyle;

/// The surface of a panel. It is opaque, so that windows that go on drawing behind it cost it nothing.
class PanelCard : public QWidget {
    Q_OBJECT
public:
    /// @p isFlush: it reaches to the edges of the screen, and has neither border nor rounded corners.
    PanelCard(const WzCustomStyle& style, bool isFlush, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const WzCustomStyle& m_style;
    const bool m_isFlush;
};
