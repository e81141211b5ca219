#pragma once

#include "datacore/ClientDatacore.h"

#include <QPointer>

class DatacoreConnectionBuilderBase;

/// What a builder holds of a node: enough to connect windows to it and nothing that could be used without
/// looking whether the node is there.
class DatacoreLink {
public:
    DatacoreLink() = default;
    Q_DISABLE_COPY_MOVE(DatacoreLink)

    bool isLinked() const { return !m_datacore.isNull(); }
    /// Why the node is inactive, which its signal does not tell; empty when it is active or not there.
    QStringList reasonsForBeingInactive() const;

    /// Connects the node's datacoreUpdated() to the window's slot. False when the node or the window is not
    /// there.
    template<typename Window, typename Slot>
    bool toWindow(Window* window, Slot slot) const
    {
        return m_datacore && window
            && QObject::connect(m_datacore.data(), &ClientDatacore::datacoreUpdated, window, slot);
    }
    /// Connects the window's signal to a setter of the node. False when the node or the window is not there.
    template<typename Window, typename Signal, typename Setter>
    bool fromWindow(Window* window, Signal signal, Setter setter) const
    {
        return m_datacore && window && QObject::connect(window, signal, m_datacore.data(), setter);
    }

    /// Lets a setting of the window show whether a write waits for its echo, and why the element is inactive.
    /// It has setUnconfirmed(bool) and askInactiveReasons(). False when the node or the setting is not there.
    template<typename Setting>
    bool informs(Setting* setting) const
    {
        if (!m_datacore || !setting)
            return false;
        QObject::connect(m_datacore.data(), &ClientDatacore::datacoreOutOfSyncWithServer, setting,
                         [setting] { setting->setUnconfirmed(true); });
        QObject::connect(m_datacore.data(), &ClientDatacore::datacoreInSyncWithServer, setting,
                         [setting] { setting->setUnconfirmed(false); });
        setting->askInactiveReasons([this] { return reasonsForBeingInactive(); });
        return true;
    }

private:
    friend class DatacoreConnectionBuilderBase;

    QPointer<ClientDatacore> m_datacore;
};
