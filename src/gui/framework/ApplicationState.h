#pragma once

#include <QObject>

/// What the windows need to know of the application that they are part of. The application owns it.
class ApplicationState : public QObject {
    Q_OBJECT
public:
    /// The client type of the display client, by which windows choose their sizes.
    static constexpr int kDisplayClient = 1;

    explicit ApplicationState(int clientType, QObject* parent = nullptr)
        : QObject(parent)
        , m_clientType(clientType)
    {
    }

    int clientType() const { return m_clientType; }
    bool isDisplayClient() const { return m_clientType == kDisplayClient; }

    /// While it is on, layouts and windows stay as they are.
    bool isLayoutLocked() const { return m_layoutLocked; }
    /// While it is on, nothing is asked of the user and nothing is saved: a preset is being loaded.
    bool isDoNotDisturb() const { return m_doNotDisturb; }

public slots:
    void setLayoutLocked(bool locked);
    void setDoNotDisturb(bool doNotDisturb);

signals:
    void layoutLockChanged(bool locked);
    void doNotDisturbChanged(bool doNotDisturb);

private:
    const int m_clientType;
    bool m_layoutLocked = false;
    bool m_doNotDisturb = false;
};
