#pragma once

#include "types/sdi/PayloadFamilies.h"
#include "types/sdi/PayloadIdentifierBase.h"

namespace Velmora::Sdi {

/// The field values of an identifier beyond scan, rate, sampling and depth.
struct PayloadIdentifierOptions {
    PayloadId::TransferCurve transfer = PayloadId::TransferCurve::SdrTv;
    PayloadId::Colourimetry colourimetry = PayloadId::Colourimetry::Rec709;
    PayloadId::AspectRatio aspect = PayloadId::AspectRatio::FourByThreeOrUnknown;
    PayloadId::HorizontalPixelArraySize array = PayloadId::HorizontalPixelArraySize::Size1920;
    PayloadId::LuminanceAndColourDifferenceSignal luminance =
        PayloadId::LuminanceAndColourDifferenceSignal::YCbCr;
    PayloadId::AudioCopyStatus audioCopy = PayloadId::AudioCopyStatus::Additional;
    unsigned channel = 0; ///< link or stream, counted from 0
};

/// The code by which a family writes @p depth; a depth that the family cannot write gives a reserved or the
/// nearest code.
constexpr unsigned bitDepthCode(BitDepthCoding coding, PayloadId::BitDepth depth)
{
    switch (coding) {
    case BitDepthCoding::OneBit:
        return depth == PayloadId::BitDepth::Bits8 ? 0 : 1;
    case BitDepthCoding::S292_1:
        return static_cast<unsigned>(PayloadIdentifierBase::convertBitDepthToS292_1BitDepth(depth));
    case BitDepthCoding::General:
        break;
    }
    return static_cast<unsigned>(depth);
}

/// Builds the word of an identifier: the inverse of the typed reading. Fields that the family lacks are left
/// out, values that do not fit their field are cut. Inlined always, since for a known family it folds to a
/// few shifts.
[[gnu::always_inline]] constexpr std::uint32_t
buildPayloadIdentifierWord(const PayloadFamily& family, PayloadId::TransportFormat transport,
                           PayloadId::PictureFormat picture, PayloadId::PictureRate rate,
                           PayloadId::SampleStructure sampling, PayloadId::BitDepth depth,
                           const PayloadIdentifierOptions& options)
{
    using Type = PayloadIdentifierFieldType;
    std::uint32_t word = 0;
    const auto put = [&word, &family](Type type, auto value) {
        word = family.fields.at(type).write(word, static_cast<unsigned>(value));
    };
    put(Type::PayloadAndDigitalInterface, family.byte1);
    put(Type::TransportFormat, transport);
    put(Type::PictureFormat, picture);
    put(Type::PictureRate, rate);
    put(Type::TransferCharacteristics, options.transfer);
    put(Type::SamplingStructure, sampling);
    put(Type::Colourimetry, options.colourimetry);
    put(Type::AspectRatio, options.aspect);
    put(Type::HorizontalPixelArraySize, options.array);
    put(Type::BitDepth, bitDepthCode(family.depthCoding, depth));
    put(Type::LuminanceAndColourDifferenceSignal, options.luminance);
    put(Type::Channel, options.channel);
    put(Type::AudioCopyStatus, options.audioCopy);
    return word;
}

/// Checks an identifier against the rules in the row of its family.
QStringList checkByFamilyRules(const PayloadIdentifierBase& identifier, const PayloadFamily& family);

/// Common shape of the family classes: everything that the family's row decides.
template<const PayloadFamily& Family>
class PayloadIdentifierOfFamily : public PayloadIdentifierBase {
public:
    static constexpr const PayloadFamily& kFamily = Family;

    explicit PayloadIdentifierOfFamily(std::uint32_t word)
        : PayloadIdentifierBase(word, &Family.fields)
    {
    }
    /// Reads the word of this family by another field map.
    PayloadIdentifierOfFamily(std::uint32_t word, const FieldMap& fields)
        : PayloadIdentifierBase(word, fields)
    {
    }

    static std::uint32_t
    getPayloadIdentifierWord(PayloadId::TransportFormat transport, PayloadId::PictureFormat picture,
                             PayloadId::PictureRate rate, PayloadId::SampleStructure sampling,
                             PayloadId::BitDepth depth, const PayloadIdentifierOptions& options = {})
    {
        return buildPayloadIdentifierWord(Family, transport, picture, rate, sampling, depth, options);
    }

    const PayloadFamily* family() const override { return &Family; }
    QStringList doSmpteValidationChecks() const override { return checkByFamilyRules(*this, Family); }
};

class PayloadIdentifierSd_270m final : public PayloadIdentifierOfFamily<PayloadFamilies::kSd_270m> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier720_1g5 final : public PayloadIdentifierOfFamily<PayloadFamilies::k720_1g5> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier1080_1g5 final : public PayloadIdentifierOfFamily<PayloadFamilies::k1080_1g5> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

/// Checks by rules of this system, which are narrower than ST 372: no full range, no X'Y'Z', no 4:2:2 at 12
/// bits, and 4:2:2 at 2048 samples up to 47.95 frames.
class PayloadIdentifier1080_DualLink1g5 final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k1080_DualLink1g5> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;

public:
    QStringList doSmpteValidationChecks() const override;
};

class PayloadIdentifier720_3g final : public PayloadIdentifierOfFamily<PayloadFamilies::k720_3g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

/// Checks byte 1, the range of the rate and the range of the sampling structure only, not their combinations;
/// X'Y'Z' fails, although ST 425-1 carries it.
class PayloadIdentifier1080_3g final : public PayloadIdentifierOfFamily<PayloadFamilies::k1080_3g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;

public:
    QStringList doSmpteValidationChecks() const override;
};

class PayloadIdentifier1080_Levelb3g final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k1080_Levelb3g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier2160_DualLinkLevelb3g final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k2160_DualLinkLevelb3g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier2160_QuadLink3g final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k2160_QuadLink3g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier2160_QuadLinkLevelb3g final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k2160_QuadLinkLevelb3g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier2160_6g final : public PayloadIdentifierOfFamily<PayloadFamilies::k2160_6g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier2160_DualLink6g final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k2160_DualLink6g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier2160_12g final : public PayloadIdentifierOfFamily<PayloadFamilies::k2160_12g> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

class PayloadIdentifier4320_QuadLink12g_SingleOnly final
    : public PayloadIdentifierOfFamily<PayloadFamilies::k4320_QuadLink12g_SingleOnly> {
    using PayloadIdentifierOfFamily::PayloadIdentifierOfFamily;
};

} // namespace Velmora::Sdi
