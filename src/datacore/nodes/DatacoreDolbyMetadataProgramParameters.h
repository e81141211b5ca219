#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// The settings of one program of the Dolby metadata, as the numbers that the metadata carries.
struct DolbyMetadataProgramParametersValue {
    static constexpr QLatin1String kNodeClass{"DatacoreDolbyMetadataProgramParameters", 38};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDolbyMetadataProgramParameters;

    quint8 program = 0; ///< from 0
    QString description; ///< name of the program
    quint8 codingMode = 0; ///< "acmod"
    quint8 bitstreamMode = 0; ///< "bsmod"
    quint8 dialogueNormalisation = 0; ///< level below full scale in dB, 1 to 31
    bool hasLfe = false; ///< a channel for low frequency effects

    bool operator==(const DolbyMetadataProgramParametersValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.program, self.description, self.codingMode, self.bitstreamMode, self.dialogueNormalisation,
              self.hasLfe);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        if (dialogueNormalisation < 1 || dialogueNormalisation > 31)
            messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    }
};

/// The node that holds such a value.
class DatacoreDolbyMetadataProgramParameters
    : public DatacoreStructured<DolbyMetadataProgramParametersValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
