#pragma once

#include <QAbstractButton>
#include <QElapsedTimer>

/// A button that, held for a while or clicked with the right button, asks for its context menu instead.
class HoldButton : public QAbstractButton {
    Q_OBJECT
public:
    static constexpr int kHoldMs = 500;

    explicit HoldButton(QWidget* parent = nullptr);

signals:
    /// At that place on the screen.
    void contextMenuWanted(QPoint globalPosition);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Whether the focus is to be shown, since it was moved by keys.
    bool showsFocus() const;

private:
    QElapsedTimer m_sincePress;
};
