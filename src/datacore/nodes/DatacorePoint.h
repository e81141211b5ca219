#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// A place in a picture or a graph.
struct PointValue {
    static constexpr QLatin1String kNodeClass{"DatacorePoint", 13};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotInt;

    int x = 0;
    int y = 0;

    bool operator==(const PointValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.x, self.y);
    }
};

/// The node that holds such a value.
class DatacorePoint : public DatacoreStructured<PointValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
