#pragma once

#include <QObject>
#include <QString>

#include <functional>

/// The last step of the user's that can be taken back. The next one takes its place.
class UndoStep : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// @p what was done: "Layout "A" deleted". @p undo may be called once; @p isPossible may be missing.
    void offer(const QString& what, std::function<void()> undo, std::function<bool()> isPossible = {});

    bool isPossible() const { return m_undo && (!m_isPossible || m_isPossible()); }
    QString what() const { return m_what; }
    /// Nothing when there is nothing to be taken back.
    void undo();

signals:
    /// Something has been done that can be taken back.
    void offered(const QString& what);
    void undone();

private:
    QString m_what;
    std::function<void()> m_undo;
    std::function<bool()> m_isPossible;
};
