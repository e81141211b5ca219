#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// Something has happened in discovery and registration (AMWA IS-04), connection management (IS-05) or
/// authorisation (IS-10).
///
/// | key | type | meaning |
/// |---|---|---|
/// | "nmos_event" | text | what has happened, a code of the table in the source |
/// | "nmos_resource" | text | the kind of resource: "node", "device", "sender", "receiver", "registry" ... |
/// | "nmos_name" | text | its label, its identifier or its address |
/// | "nmos_detail" | text | what else there is to say: activation mode and time, reason of a failure |
class NMOSEventPacket final : public LogSerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName = latin1("NMOSEventPacket");

    enum class Event {
        RegistryFound,
        RegistryLost,
        Registered,
        HeartbeatLost,
        ReRegistered,
        ResourceAdded,
        ResourceRemoved,
        Staged,
        Activated,
        ActivationScheduled,
        ActivationFailed,
        MasterEnableOn,
        MasterEnableOff,
        AuthorisationRefused,
    };

    NMOSEventPacket();
    /// Null texts leave their keys out.
    NMOSEventPacket(Event event, const QString& resource, const QString& name,
                    const QString& detail = QString());

    /// "NMOS activated: sender Camera 1 (activate_immediate)". A code that is not known stands as it is; what
    /// is missing is left out.
    QString getEventCustomMessage() const override;
};
