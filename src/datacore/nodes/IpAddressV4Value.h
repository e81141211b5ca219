#pragma once

#include "datacore/DatacoreValidStatusMessage.h"
#include "datacore/ItemCodec.h"

#include <list>

/// An IPv4 address in dotted form with four numbers.
struct IpAddressV4Value {
    static constexpr QLatin1String kNodeClass{"DatacoreIpAddressV4", 19};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDesiredType;

    quint32 address = 0;

    bool operator==(const IpAddressV4Value&) const = default;

    static std::optional<IpAddressV4Value> fromText(const QString& text);
    QString toText() const;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        if constexpr (Codec::kReads)
            codec.parsed(self, &fromText);
        else
            codec.text(self.toText());
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const;
    /// As an address to join: it has to be multicast and none of those that are reserved for the network's
    /// own use.
    void checkMulticast(std::list<DatacoreValidStatusMessage>& messages) const;
};
