#pragma once

#include "types/sdi/PayloadIdentifierBase.h"
#include "types/sdi/RasterTiming.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace Velmora::Sdi {

/// The facts of a standard's name as separate texts; empty where they do not apply.
struct StandardComponents {
    QString size; ///< "3840x2160"
    QString scan; ///< "i", "p", "psf"
    QString rate; ///< "59.94", the field rate for interlaced pictures
    QString sampling; ///< "YCbCr:422"
    QString bitDepth; ///< "10"
    QString links; ///< "DL", "QL"
    QString dataRate; ///< "3G", of one link
    QString level; ///< "A", "B"
    QString mapping; ///< "2-SI", "SQ"
    QString luminance; ///< "YCbCr", "ICtCp"
    QString transferCurve; ///< "SDR-TV"
    QString colourimetry; ///< "Rec.709"
};

/// One SDI video standard: the payload identifiers that its signal carries. Everything else is computed from
/// them, mostly from the first. A value, never changed after creation.
///
/// Sub-images and links count from 0. Sizes and line numbers of a sub-image are those of its own raster.
class StandardFromPayloadIdentifier {
public:
    using Identifier = std::shared_ptr<const PayloadIdentifierBase>;

    /// @p identifiers in link order, with two for each 3G level B link, and at least one. With @p
    /// quadrantMode each link carries one quadrant of the picture.
    static StandardFromPayloadIdentifier
    createStandardFromPayloadIdentifier(std::vector<Identifier> identifiers, bool quadrantMode = false);

    friend bool operator==(const StandardFromPayloadIdentifier& a, const StandardFromPayloadIdentifier& b);

    // The picture.

    /// Width and height of the whole picture.
    QSize getReconsutructedImageDimensionsInPixels() const; // (sic) the name is laid down so
    unsigned getReconstructedImageHeightInPixelsForDisplay() const;
    PayloadId::TransportFormat getTransportFormat() const;
    PayloadId::PictureFormat getPictureFormat() const;
    InterlacedProgressivePsf getScan() const;
    PayloadId::PictureRate getPictureRate() const;
    PayloadId::SampleStructure getSampleStructure() const;
    PayloadId::BitDepth getBitDepth() const;
    PayloadId::AspectRatio getAspectRatio() const;
    PayloadId::Colourimetry getColourimetry() const;
    PayloadId::TransferCurve getTransferCurve() const;
    PayloadId::LuminanceAndColourDifferenceSignal getLuminanceAndColourDifferenceSignal() const;
    CombinedFormat getCombinedFormat() const;
    /// Active pixels of one frame of the whole picture.
    unsigned getPixelsPerFrame() const;
    bool isStandardDefinition() const;
    bool isSd525i() const;
    bool isSd625i() const;
    /// Whether the colour difference signals have half the luminance's samples on a line.
    bool isChromaHalved() const;
    /// Alpha proper; a data component (D) is none.
    bool hasAlphaChannel() const;
    /// Anything but 4:2:2 with at most 10 bits.
    bool isExtendedColourMode() const;

    // The links.

    unsigned getNumberOfPhysicalLinks() const;
    std::vector<SdiDataRate> getPhysicalLinksDataRates() const;
    /// Serial bits a second of all links together.
    double getTotalDataRate() const;
    Level getLinkLevel() const;
    bool linksAreLevelB() const;
    bool isDualLink1G5() const;
    /// Level B and dual-link 1.5G alike are taken apart into 1.5G streams.
    bool processedAsLevelB() const;
    bool isDualLink3gLevelBdualStream4k() const;
    /// Progressive picture whose lines alternate between the two 1.5G streams (ST 372).
    bool isLevelBLineInterleaved() const;
    /// Whether links of this standard, running at @p rate, carry two identifiers for each sub-image.
    bool physicalLinksHaveTwoPayloadIdentifiersPerSubImage(SdiDataRate rate) const;
    /// Whether the analyser can only ever see one of the standard's links.
    bool isSingleLinkOfMultiLinkStandard() const;
    /// Whether rates are multiples of 1000/1001. Not so in 525-line standard definition, whose clock is 27
    /// MHz.
    bool getClockIs1001Not1000() const;
    /// 1001 or 1000.
    unsigned getClockDivisor() const;

    // The sub-images.

    unsigned getSubImageCount() const;
    SubImagePixelMappingFormat getSubimagePixelMappingFormat() const;
    PayloadId::HorizontalPixelArraySize getSubImageHorizontalPixelArraySize() const;
    bool isQuadrantMode() const { return m_quadrantMode; }

    // Timing. Zero where no standard has such a raster.

    /// First line of the sub-image's raster that carries picture, of field 1 where there are fields.
    unsigned getFirstLineOfActivePicture() const;
    unsigned getSubImageFrameHeight() const; ///< lines, blanking included
    unsigned getSubImageFrameWidth() const; ///< pixels, blanking included
    unsigned getSubImageActiveWidth() const;
    unsigned getSubImageActiveHeight() const;
    /// From the start of EAV, where the interface line begins, to 0H.
    unsigned getNumberOfPixelsFromStartOfLine1To0H() const;
    /// Pixels a second of one sub-image's raster, blanking included.
    double getSubPicutureSampleRateInHz() const; // (sic) the name is laid down so
    /// Samples a second of one 1.5G stream where the standard is processed as level B, otherwise 0.
    double getLevelBLinkSampleRateInHz() const;
    /// Blanking of a line of the whole picture, as if it had one raster of its own.
    unsigned getReconstructedPictureHorizontalblankingSize() const;
    QSize getWidthAndHeightOfSubImageFrameForTimingCalculations() const;

    // Identifiers.

    const std::vector<Identifier>& getPayloadIdentifiers() const { return m_identifiers; }
    const PayloadIdentifierBase& getFirstPayloadIdentifier() const { return *m_identifiers.front(); }
    /// The identifiers that accompany one sub-image; none beyond the last.
    std::vector<Identifier> getPayloadIdentifiersForSubImage(unsigned subImage) const;
    /// The words that a generator inserts, in link order.
    std::vector<std::uint32_t> getPayloadIdentifierWords() const;

    // Texts.

    /// The display name: the first identifier's text, or one of the same form for a quadrant standard.
    QString getStandardAsShortText() const;
    QString getStandardAsLongText() const { return getStandardAsShortText(); }
    StandardComponents getStandardAsComponents() const;
    /// Unambiguous one-word form for logs and saved state, every part always present:
    /// "1920x1080p50/YCbCr:422:10/1x3G-A/YCbCr/SDR-TV/Rec.709/89C98001".
    QString getStandardAsReferenceString() const;

private:
    explicit StandardFromPayloadIdentifier(std::vector<Identifier> identifiers, bool quadrantMode);

    RasterTiming subImageRaster() const;

    std::vector<Identifier> m_identifiers;
    bool m_quadrantMode = false;
};

} // namespace Velmora::Sdi
