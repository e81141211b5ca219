#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// A marker that the user has put on the vectorscope.
struct VectorscopeUserMarkerValue {
    static constexpr QLatin1String kNodeClass{"DatacoreVectorscopeUserMarker", 29};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDesiredType;

    bool isShown = false;
    double cb = 0; ///< -0.5 to 0.5
    double cr = 0; ///< -0.5 to 0.5

    bool operator==(const VectorscopeUserMarkerValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.isShown, self.cb, self.cr);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        if (!(cb >= -0.5 && cb <= 0.5 && cr >= -0.5 && cr <= 0.5))
            messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    }
};

/// The node that holds such a value.
class DatacoreVectorscopeUserMarker : public DatacoreStructured<VectorscopeUserMarkerValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
