#include "datacore/nodes/DatacoreVideoStandard.h"

#include <algorithm>
#include <cctype>

using Velmora::Sdi::findPayloadFamily;
using Velmora::Sdi::makePayloadIdentifier;
using Velmora::Sdi::StandardFromPayloadIdentifier;

namespace {

constexpr int kWordDigits = 8;

bool isHexadecimal(QChar digit)
{
    return digit.unicode() < 0x80 && std::isxdigit(digit.unicode());
}

} // namespace

std::optional<quint32> VideoStandardValue::Identifier::fromText(const QString& text)
{
    if (text.size() != kWordDigits || !std::all_of(text.begin(), text.end(), &isHexadecimal))
        return std::nullopt;
    return text.toUInt(nullptr, 16);
}

QString VideoStandardValue::Identifier::toText(quint32 word)
{
    return QString::number(word, 16).toUpper().rightJustified(kWordDigits, QLatin1Char('0'));
}

VideoStandardValue VideoStandardValue::of(const StandardFromPayloadIdentifier& standard)
{
    VideoStandardValue value{.isQuadrantMode = standard.isQuadrantMode(), .identifiers = {}};
    for (const quint32 word : standard.getPayloadIdentifierWords())
        value.identifiers.push_back({word});
    return value;
}

std::optional<StandardFromPayloadIdentifier> VideoStandardValue::toStandard() const
{
    if (identifiers.empty())
        return std::nullopt;
    std::vector<StandardFromPayloadIdentifier::Identifier> decoded;
    for (const Identifier& identifier : identifiers)
        decoded.push_back(makePayloadIdentifier(identifier.word));
    return StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(std::move(decoded),
                                                                              isQuadrantMode);
}

void VideoStandardValue::check(std::list<DatacoreValidStatusMessage>& messages) const
{
    if (identifiers.empty()) {
        messages.emplace_back(DatacoreValidStatusMessage::PayloadIdentifierMissing);
        return;
    }
    if (identifiers.size() > kMostIdentifiers)
        messages.emplace_back(DatacoreValidStatusMessage::TooManyItems);
    // The links of one standard belong to one family.
    const auto byte1 = [](const Identifier& identifier) { return identifier.word >> 24; };
    const unsigned first = byte1(identifiers.front());
    const bool isOneFamily = std::all_of(identifiers.begin(), identifiers.end(),
                                         [&](const Identifier& each) { return byte1(each) == first; });
    if (!isOneFamily || !findPayloadFamily(first))
        messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
}
