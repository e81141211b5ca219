#pragma once

#include "gui/shell/HoldButton.h"

#include <QRectF>

#include <vector>

class SupportedSubWindows;
class WindowLayoutPreset;
class WzCustomStyle;

/// One layout in the overview: a sketch of where its windows stand, its name, place and number of windows.
/// The one that is checked is what commands act on.
class LayoutCard : public HoldButton {
    Q_OBJECT
public:
    static constexpr QSize kFace{384, 312};
    /// Around the face, for the ring of the focus.
    static constexpr int kMargin = 4;

    struct Window {
        QString title;
        QString icon;
        QRectF place; ///< as a share of the instrument area
    };

    LayoutCard(const WzCustomStyle& style, int index, QWidget* parent);

    /// No layout, but room for one.
    void setVacant();
    void setLayout(const QString& name, const std::vector<Window>& windows, bool isCurrent);
    int index() const { return m_index; }
    const std::vector<Window>& windows() const { return m_windows; }

    /// Where the windows of @p layout stand in an instrument area of that size.
    static std::vector<Window> windowsOf(const WindowLayoutPreset& layout, const QSize& area,
                                         const SupportedSubWindows& catalogue);

    QSize sizeHint() const override { return kFace + QSize(2 * kMargin, 2 * kMargin); }

signals:
    void focused();

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void paintVacant(QPainter& painter, const QRect& face) const;
    void paintSketch(QPainter& painter, const QRectF& frame) const;
    void paintWindow(QPainter& painter, const QRectF& place, const Window& window) const;
    void paintTexts(QPainter& painter, const QRect& face) const;

    const WzCustomStyle& m_style;
    const int m_index;
    std::vector<Window> m_windows;
    bool m_isCurrent = false;
    bool m_isVacant = false;
};
