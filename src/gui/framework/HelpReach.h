#pragma once

#include <QObject>
#include <QPointer>

class QMouseEvent;
class QWidget;
class WzSubWindow;

/// The part of the "?" that reaches from the title line into the window, for the line is slimmer than a
/// finger. A tap there opens and closes the help page, unless it hits a control of the content.
class HelpReach : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Takes a mouse event of @p receiver, which lies in a sub-window. True when it is used up.
    bool filterMouseEvent(QWidget* receiver, const QMouseEvent& event);

private:
    QPointer<WzSubWindow> m_window; ///< in which the press was
};
