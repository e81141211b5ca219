#pragma once

#include "datacore/DatacoreValidStatusMessage.h"
#include "datacore/ItemCodec.h"

#include <array>
#include <list>

/// A 48-bit hardware address, as six pairs of hexadecimal digits with ":" or "-" between them; written with
/// ":" and small letters.
struct MacAddressValue {
    static constexpr QLatin1String kNodeClass{"DatacoreMacAddress", 18};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::InvalidMacAddress;

    std::array<quint8, 6> bytes{};

    bool operator==(const MacAddressValue&) const = default;

    static std::optional<MacAddressValue> fromText(const QString& text);
    QString toText() const;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        if constexpr (Codec::kReads)
            codec.parsed(self, &fromText);
        else
            codec.text(self.toText());
    }
};
