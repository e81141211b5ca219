#pragma once

#include "datacore/nodes/DatacoreStructured.h"

#include <vector>

/// The ranges of level that are shown in a colour of their own.
struct FalseColourOverlayRangesSummaryStruct {
    static constexpr QLatin1String kNodeClass{"DatacoreFalseColourOverlayRangesSummary", 39};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotFalseColourOverlayRangesSummary;

    /// One range.
    struct Range {
        bool isShown = false;
        double lower = 0; ///< in the units of the scale chosen
        double upper = 0; ///< not below lower
        QString colour; ///< #rrggbb

        bool operator==(const Range&) const = default;

        template<typename Codec, typename Self>
        static void visit(Codec& codec, Self& self)
        {
            codec(self.isShown, self.lower, self.upper, self.colour);
        }
    };

    std::vector<Range> entries;

    bool operator==(const FalseColourOverlayRangesSummaryStruct&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec.list(self.entries);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const;
};

/// The node that holds such a value.
class DatacoreFalseColourOverlayRangesSummary
    : public DatacoreStructured<FalseColourOverlayRangesSummaryStruct> {
public:
    using DatacoreStructured::DatacoreStructured;
};
