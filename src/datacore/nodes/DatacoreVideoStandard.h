#pragma once

#include "datacore/nodes/DatacoreStructured.h"

#include "types/sdi/StandardFromPayloadIdentifier.h"

#include <optional>
#include <vector>

/// An SDI video standard, as the payload identifiers of its links.
struct VideoStandardValue {
    static constexpr QLatin1String kNodeClass{"DatacoreVideoStandard", 21};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotVideoStandard;
    /// Four links of 3G level B have two each.
    static constexpr size_t kMostIdentifiers = 8;

    /// The word of one identifier, in eight hexadecimal digits with byte 1 first.
    struct Identifier {
        quint32 word = 0;

        bool operator==(const Identifier&) const = default;

        static std::optional<quint32> fromText(const QString& text);
        static QString toText(quint32 word);

        template<typename Codec, typename Self>
        static void visit(Codec& codec, Self& self)
        {
            codec.named(self.word, &toText, &fromText);
        }
    };

    bool isQuadrantMode = false; ///< each link carries one quadrant of the picture
    std::vector<Identifier> identifiers; ///< in link order

    bool operator==(const VideoStandardValue&) const = default;

    static VideoStandardValue of(const Velmora::Sdi::StandardFromPayloadIdentifier& standard);
    /// Nothing without identifiers. Unknown ones give a standard of unknown properties.
    std::optional<Velmora::Sdi::StandardFromPayloadIdentifier> toStandard() const;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.isQuadrantMode);
        codec.list(self.identifiers);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const;
};

/// The node that holds such a value.
class DatacoreVideoStandard : public DatacoreStructured<VideoStandardValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
