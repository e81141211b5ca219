#pragma once

#include "types/sdi/PayloadFamily.h"
#include "types/sdi/PayloadIdTypes.h"
#include "types/sdi/PayloadIdentifierField.h"
#include "types/sdi/SdiTypes.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Velmora::Sdi {

/// One SMPTE ST 352 payload identifier: four bytes and the places of their fields.
///
/// This class reads an identifier of any family by the field places that nearly all families share; the
/// family classes know their own places, geometry and rules. Use makePayloadIdentifier() to get the right
/// class for a received word. Decoding never fails: an unknown code keeps its number and gets a fallback
/// text.
class PayloadIdentifierBase {
public:
    using FieldType = PayloadIdentifierFieldType;
    using FieldMap = PayloadIdentifierFieldMap;

    /// @p word holds byte 1 of ST 352 in its most significant byte. Uses the default field map.
    explicit PayloadIdentifierBase(std::uint32_t word);
    /// Reads @p word by @p fields, of which the identifier keeps a copy.
    PayloadIdentifierBase(std::uint32_t word, const FieldMap& fields);
    virtual ~PayloadIdentifierBase() = default;

    PayloadIdentifierBase(const PayloadIdentifierBase&) = default;
    PayloadIdentifierBase& operator=(const PayloadIdentifierBase&) = default;
    PayloadIdentifierBase(PayloadIdentifierBase&&) = default;
    PayloadIdentifierBase& operator=(PayloadIdentifierBase&&) = default;

    std::uint32_t getWord() const { return m_word; }
    const FieldMap& getFieldMap() const { return *m_fields; }

    /// Equal words.
    friend bool operator==(const PayloadIdentifierBase& a, const PayloadIdentifierBase& b)
    {
        return a.m_word == b.m_word;
    }

    /// Whether both identifiers belong to the same video standard. Link or stream number and audio copy
    /// status never count. With @p exact, every other field must be equal. Without it, what describes the
    /// picture but does not change the signal's structure is passed over: the aspect bit (often left at
    /// "unknown"), the luminance signal, and a transport bit that yields the same scan.
    bool compareForVideoStandard(const PayloadIdentifierBase& other, bool exact) const;

    /// The raw code of a field; nothing where this family lacks the field.
    std::optional<unsigned> getField(FieldType type) const;

    // Typed fields. A family that lacks the field answers what its signals always are.

    /// Byte 1.
    unsigned getPayloadAndDigitialInterface() const; // (sic) the name is laid down so
    PayloadId::PictureRate getPictureRate() const;
    PayloadId::PictureFormat getPictureInterlaced() const;
    PayloadId::TransportFormat getTransportInterlaced() const;
    PayloadId::SampleStructure getSampleStructure() const;
    PayloadId::BitDepth getBitDepth() const;
    PayloadId::AspectRatio getAspectRatio() const;
    PayloadId::HorizontalPixelArraySize getHorizontalArraySize() const;
    PayloadId::TransferCurve getTransferCharacteristics() const;
    PayloadId::LuminanceAndColourDifferenceSignal getLuminanceAndColourDifferenceSignal() const;
    /// Link or stream number, counted from 0.
    unsigned getChannel() const;
    PayloadId::AudioCopyStatus getAudioCopyStatus() const;
    /// Rec601 for standard definition, which has no such field.
    PayloadId::Colourimetry getColourimetry() const;

    // Geometry. An identifier of no supported family answers 0, None or Unknown.

    /// The family's facts; null for an identifier of no supported family.
    virtual const PayloadFamily* family() const { return nullptr; }
    /// Whether byte 1 is the one of this class.
    bool hasCorrectpayloadAndDigitalInterface() const;
    SubImagePixelMappingFormat getSubImagePixelMappingFormat() const;
    unsigned getNumPhysicalConnections() const;
    SdiDataRate getDataRatePerPhysicalConnection() const;
    Level getLevel() const;
    unsigned getNumSubImages() const;
    /// Scan from the two scan bits; progressive pictures on a line-interleaved transport (ST 372) read as
    /// progressive.
    InterlacedProgressivePsf getPicutreInterlacedProgressivePsf() const; // (sic) the name is laid down so

    /// Pixels per line of one sub-image.
    unsigned getSubImageWidthInPixels() const;
    /// Lines of one sub-image, both fields together.
    unsigned getSubImageHeightInPixels() const;
    /// Length of the active line in samples of one data stream: twice the pixels where a pixel takes two
    /// locations.
    unsigned getFieldActivePictureWidthInSamples() const;
    /// Active lines of a field as transported; a progressive transport has a first field only.
    unsigned getFieldActivePictureHeight(bool secondField) const;
    /// Active lines of each transported field: one entry for a progressive transport, otherwise two.
    std::vector<unsigned> getFieldHeights() const;
    /// First active line of each transported field (ST 125, BT.656, ST 296, ST 274).
    std::vector<unsigned> getFieldFirstLineNumbersOfActivePicture() const;
    /// @p length, doubled where each pixel takes two words of a data stream (ST 425-1 structures 2 to 4).
    unsigned doubleActiveLineLengthIfTwoLocationsRequiredPerPixel(unsigned length) const;
    unsigned getReconstructedImageWidthInPixels() const;
    unsigned getReconstructedImageHeightInPixels() const;
    /// The height used in names: 486 for 525 lines.
    unsigned getReconstructedImageHeightInPixelsForDisplay() const;
    /// Whether the content is anything but 4:2:2 with at most 10 bits.
    bool isExtendedColourMode() const;
    /// Whether a progressive picture is dealt out by lines to interlaced 1.5G streams (ST 372).
    bool isLineInterleaved() const;

    // Checks.

    /// Error texts, none for an identifier that its interface standard allows.
    virtual QStringList doSmpteValidationChecks() const;
    /// One text per reserved bit that is set. Bytes and bits count from 0.
    QStringList doReservedBitsChecks() const;
    /// Whether no bit of the field map belongs to two fields.
    bool checkThatPayloadIdentifierFieldsDoNotOverlap() const;

    // Texts.

    /// Display text. With @p asStandard it names the video standard: what all identifiers of the standard
    /// have in common. Without, it adds the link or stream that this very identifier numbers ("LinkA",
    /// "DS3_Link2").
    QString toHumanReadable(bool asStandard) const;
    /// "LinkA", "DS3_Link2" and so on; empty for families that number nothing.
    QString getLinkName() const;

    /// The meaning of a depth code as this family writes it.
    PayloadId::BitDepth interpretBitDepthAppropriatelyForStandard(int code) const;
    /// The ST 292-1 code of a depth; 12-bit depths have none and give the reserved code 2.
    static constexpr int convertBitDepthToS292_1BitDepth(PayloadId::BitDepth depth)
    {
        switch (depth) {
        case PayloadId::BitDepth::Bits8:
            return 0;
        case PayloadId::BitDepth::Bits10:
            return 1;
        case PayloadId::BitDepth::Bits10FullRange:
            return 3;
        default:
            return 2;
        }
    }

protected:
    /// For family classes: @p sharedFields must outlive every identifier.
    PayloadIdentifierBase(std::uint32_t word, const FieldMap* sharedFields);

private:
    unsigned rawField(FieldType type) const { return m_fields->at(type).read(m_word); }
    bool hasField(FieldType type) const { return m_fields->contains(type); }
    bool hasSameDefiningField(const PayloadIdentifierBase& other, FieldType type) const;
    bool is720Line() const;
    bool isTransportedInFields() const;

    std::uint32_t m_word = 0;
    /// One map per family, shared without owner; an explicit map is owned.
    std::shared_ptr<const FieldMap> m_fields;
};

/// Decodes @p word as the family that its byte 1 names, or as PayloadIdentifierBase when there is none.
std::shared_ptr<const PayloadIdentifierBase> makePayloadIdentifier(std::uint32_t word);

} // namespace Velmora::Sdi
