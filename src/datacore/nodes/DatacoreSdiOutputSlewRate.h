#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// How steep the edges of an SDI output are, which depends on the rate that it is driven at (SMPTE ST 259
/// against ST 292 and faster).
struct SdiOutputSlewRateValue {
    enum class Rate { StandardDefinition, HighDefinition };

    static constexpr QLatin1String kNodeClass{"DatacoreSdiOutputSlewRate", 25};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotEnumValue;

    Rate rate = Rate::HighDefinition;

    bool operator==(const SdiOutputSlewRateValue&) const = default;

    static std::optional<Rate> fromText(const QString& text)
    {
        if (text == QLatin1String("SD"))
            return Rate::StandardDefinition;
        return text == QLatin1String("HD") ? std::optional(Rate::HighDefinition) : std::nullopt;
    }

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        if constexpr (Codec::kReads)
            codec.parsed(self.rate, &fromText);
        else
            codec.text(self.rate == Rate::HighDefinition ? QStringLiteral("HD") : QStringLiteral("SD"));
    }
};

/// The node that holds such a value.
class DatacoreSdiOutputSlewRate : public DatacoreStructured<SdiOutputSlewRateValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
