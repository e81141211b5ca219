#pragma once

#include "gui/shell/HoldButton.h"

class WzCustomStyle;

/// A kind of window in the launcher: icon, name, and how many are open.
class LauncherTile : public HoldButton {
    Q_OBJECT
public:
    static constexpr QSize kFace{202, 92};
    /// Around the face, for the ring of the focus.
    static constexpr int kMargin = 4;

    LauncherTile(const WzCustomStyle& style, const QString& iconName, const QString& name, QWidget* parent);

    void setOpenCount(int count);
    int openCount() const { return m_openCount; }
    void setPinned(bool pinned);

    QSize sizeHint() const override { return kFace + QSize(2 * kMargin, 2 * kMargin); }

signals:
    void focused();

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void paintState(QPainter& painter, const QRect& face) const;

    const WzCustomStyle& m_style;
    const QString m_iconName;
    int m_openCount = 0;
    bool m_pinned = false;
};
