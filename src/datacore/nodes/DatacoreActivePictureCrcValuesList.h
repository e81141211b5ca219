#pragma once

#include "datacore/nodes/DatacoreStructured.h"

#include <vector>

/// The checksums of the active picture.
struct ActivePictureCrcValuesList {
    static constexpr QLatin1String kNodeClass{"DatacoreActivePictureCrcValuesList", 34};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotActivePictureCrcValuesList;

    /// The checksums of one link.
    struct Values {
        quint16 luma = 0;
        quint16 chroma = 0;

        bool operator==(const Values&) const = default;

        template<typename Codec, typename Self>
        static void visit(Codec& codec, Self& self)
        {
            codec(self.luma, self.chroma);
        }
    };

    std::vector<Values> entries;

    bool operator==(const ActivePictureCrcValuesList&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec.list(self.entries);
    }
};

/// The node that holds such a value.
class DatacoreActivePictureCrcValuesList : public DatacoreStructured<ActivePictureCrcValuesList> {
public:
    using DatacoreStructured::DatacoreStructured;
};
