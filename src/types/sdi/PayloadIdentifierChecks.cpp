// The checks of identifiers against their interface standards. The texts are shown to the user as they stand.

#include "types/sdi/PayloadIdentifierFamilies.h"

#include <QLatin1String>

namespace Velmora::Sdi {

using namespace PayloadId;

namespace {

using FieldType = PayloadIdentifierFieldType;

/// The raw codes of an identifier, 0 where the family lacks the field, and the list of what is wrong with
/// them.
struct Check {
    explicit Check(const PayloadIdentifierBase& identifier)
        : rate(identifier.getField(FieldType::PictureRate).value_or(0))
        , sampling(identifier.getField(FieldType::SamplingStructure).value_or(0))
        , depth(identifier.getField(FieldType::BitDepth).value_or(0))
        , transport(static_cast<unsigned>(identifier.getTransportInterlaced()))
        , picture(static_cast<unsigned>(identifier.getPictureInterlaced()))
        , wide(identifier.getField(FieldType::HorizontalPixelArraySize).value_or(0))
        , channel(identifier.getChannel())
        , audioCopy(static_cast<unsigned>(identifier.getAudioCopyStatus()))
        , byte1(identifier.getPayloadAndDigitialInterface())
    {
    }

    void require(bool condition, const char* text, unsigned number)
    {
        if (!condition)
            errors += QLatin1String(text) + QString::number(number);
    }

    unsigned rate;
    unsigned sampling;
    unsigned depth;
    unsigned transport;
    unsigned picture;
    unsigned wide;
    unsigned channel;
    unsigned audioCopy;
    unsigned byte1;
    QStringList errors;
};

void checkScan(Check& check, CodeSet scans)
{
    const bool anyWithThisPicture = contains(scans, check.picture) || contains(scans, 2 + check.picture);
    check.require(anyWithThisPicture, "Invalid picture interlace format: ", check.picture);
    if (anyWithThisPicture)
        check.require(contains(scans, 2 * check.transport + check.picture),
                      "Invalid transport interlace format: ", check.transport);
}

/// 4:4:4:4 has no room for 12 bits, X'Y'Z' is defined with 12 and 4:2:0 with 10 bits only (ST 425-1 and ST
/// 425-5, structures 1 to 4).
bool depthFitsSampling(unsigned sampling, unsigned depth)
{
    const bool is12Bit = depth >= 2;
    if (contains(codeSet(5, 6, 9, 10, 3), sampling))
        return !is12Bit;
    return sampling != 14 || is12Bit;
}

void checkContent(Check& check, const PayloadRules& rules)
{
    const bool plain = contains(codeSet(0, 3), check.sampling) && check.depth < 2;
    check.require(depthFitsSampling(check.sampling, check.depth),
                  "Invalid bit depth for this sampling structure: ", check.depth);
    if (plain) {
        const CodeSet rates = check.wide != 0 ? RateSets::kHigh | RateSets::kCinemaHigh : RateSets::kHigh;
        check.require(contains(rates, check.rate), "Invalid picture rate for 422 and 420: ", check.rate);
        checkScan(check, rules.plainScans);
        return;
    }
    check.require(contains(RateSets::kLow, check.rate),
                  "Invalid picture rate for Extended colour modes: ", check.rate);
    checkScan(check, rules.extendedScans);
    if (check.picture == 0)
        check.require(check.sampling != 14, "Invalid sampling structure for interlaced: ", check.sampling);
}

} // namespace

QStringList checkByFamilyRules(const PayloadIdentifierBase& identifier, const PayloadFamily& family)
{
    const PayloadRules& rules = family.rules;
    Check check(identifier);
    check.require(check.byte1 == family.byte1, "Incorrect payload identifier: ", check.byte1);
    check.require(contains(rules.rates, check.rate), "Invalid picture rate: ", check.rate);
    check.require(contains(rules.samplings, check.sampling), "Invalid sampling structure: ", check.sampling);
    check.require(contains(rules.depths, check.depth), "Invalid bit depth: ", check.depth);
    check.require(check.wide == 0 || rules.mayBeWide, "Invalid horizontal pixel array size: ", check.wide);

    if (rules.plainScans == 0)
        checkScan(check, rules.scans);
    else if (contains(rules.rates, check.rate) && contains(rules.samplings, check.sampling))
        checkContent(check, rules);

    if (check.picture == 0 && contains(rules.scans, 0)) {
        check.require(contains(RateSets::kInterlaced, check.rate) || !contains(rules.rates, check.rate),
                      "Invalid picture rate for Interlaced: ", check.rate);
        check.require(check.wide == 0 || !rules.mayBeWide,
                      "Invalid picture interlace format for 2048: ", check.picture);
    }
    if (family.naming == LinkNaming::None)
        check.require(check.channel == 0, "Invalid channel: ", check.channel);
    else
        check.require(check.channel < family.identifiers, "Invalid channel: ", check.channel);
    if (rules.firstChannelWithCopiedAudio != PayloadRules::kNoCopyRule)
        check.require(check.audioCopy == 0 || check.channel >= rules.firstChannelWithCopiedAudio,
                      "Invalid audio copy status: ", check.audioCopy);
    return check.errors;
}

QStringList PayloadIdentifier1080_3g::doSmpteValidationChecks() const
{
    Check check(*this);
    check.require(hasCorrectpayloadAndDigitalInterface(), "Incorrect payload identifier: ", check.byte1);
    check.require(check.rate >= 2 && check.rate <= 11, "Invalid picture rate: ", check.rate);
    check.require(check.sampling < 11, "Invalid sampling structure: ", check.sampling);
    return check.errors;
}

namespace {

void checkDualLinkExtended(Check& check)
{
    const bool progressive = check.picture != 0;
    if (check.wide != 0)
        check.require(progressive,
                      "Invalid picture interlace format for 2048 Extended colour modes: ", check.picture);
    else if (progressive)
        check.require(contains(RateSets::kLow, check.rate),
                      "Invalid picture rate for Progressive 1920 pixel Extended colour modes: ", check.rate);
    else
        check.require(contains(RateSets::kInterlaced, check.rate),
                      "Invalid picture rate for Interlaced 1920 pixel Extended colour modes: ", check.rate);
}

void checkDualLink422(Check& check)
{
    check.require(check.depth == static_cast<unsigned>(BitDepth::Bits10),
                  "Invalid bit depth for 422: ", check.depth);
    // ST 372: 4:2:2 pictures are dealt out to interlaced links.
    check.require(check.transport == 0, "Invalid transport interlace format for 422: ", check.transport);
    check.require(check.picture == 1, "Invalid picture interlace format for 422: ", check.picture);
    if (check.wide != 0)
        check.require(check.rate <= 4, "Invalid picture rate for 2048 pixel 422: ", check.rate);
    else
        check.require(check.rate >= 3, "Invalid picture rate for 1920 pixel 422: ", check.rate);
}

} // namespace

QStringList PayloadIdentifier1080_DualLink1g5::doSmpteValidationChecks() const
{
    Check check(*this);
    check.require(hasCorrectpayloadAndDigitalInterface(), "Incorrect payload identifier: ", check.byte1);
    check.require(check.rate >= 2 && check.rate <= 11, "Invalid picture rate: ", check.rate);
    check.require(check.sampling <= 10, "Invalid sampling structure: ", check.sampling);
    check.require(check.depth == 1 || check.depth == 2, "Invalid bit depth: ", check.depth);
    if (getSampleStructure() == SampleStructure::YCbCr422)
        checkDualLink422(check);
    else
        checkDualLinkExtended(check);
    return check.errors;
}

} // namespace Velmora::Sdi
