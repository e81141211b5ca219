#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

class DisplayMainWindow;
class WzSubWindow;

/// Moves and sizes the active window without a finger: by arrow keys, knob and soft buttons, a cell of the
/// grid at a time. OK keeps what was done, back and Escape undo it.
class WindowMover : public QObject {
    Q_OBJECT
public:
    explicit WindowMover(DisplayMainWindow& window);
    ~WindowMover() override;

    bool isMoving() const { return !m_moved.isNull(); }
    /// Does nothing while the layouts are locked.
    void start(WzSubWindow* window);

    /// By so many cells.
    void move(int dx, int dy);
    /// To the next larger or smaller size that its content allows.
    void size(bool larger);

public slots:
    void keep();
    void undo();

protected:
    bool event(QEvent* event) override;

private:
    void showTriggers();
    void end();
    QSize cell() const;
    QSize nextSize(bool larger) const;

    DisplayMainWindow& m_window;
    QPointer<WzSubWindow> m_moved;
    QRect m_before;
};
