#include "network/MessageBase.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <map>

using Velmora::LogThrottle;

namespace {

constexpr QLatin1String kBaseKey{"MessageBase", 11};
constexpr QLatin1String kTypeKey{"type", 4};
constexpr QLatin1String kIdentifierKey{"identifier", 10};

std::map<QString, MessageBase::Builder>& builders()
{
    static std::map<QString, MessageBase::Builder> map;
    return map;
}

std::unique_ptr<MessageBase> buildMessage(const QJsonValue& value)
{
    if (!value.isObject()) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "Not a serialised object, of QJson type: {}", int{value.type()});
        return nullptr;
    }
    const QJsonObject object = value.toObject();
    for (const auto& [classKey, builder] : builders()) {
        if (!object.contains(classKey))
            continue;
        auto message = builder(object);
        if (!message) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::err, "Unsupported message type: {}",
                         object.value(kBaseKey).toObject().value(kTypeKey).toInt());
        }
        return message;
    }
    static LogThrottle throttle;
    throttle.log(spdlog::level::err, "Not recognised as a serialised message: {}",
                 QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    return nullptr;
}

} // namespace

MessageBase::MessageBase(int identifier, MessageType type)
    : m_identifier(identifier)
    , m_type(type)
{
}

MessageBase::MessageBase(const QJsonObject& object)
{
    const QJsonObject base = object.value(kBaseKey).toObject();
    m_identifier = base.value(kIdentifierKey).toInt();
    m_type = static_cast<MessageType>(base.value(kTypeKey).toInt());
}

MessageBase::~MessageBase() = default;

QJsonObject MessageBase::serialiseMessage() const
{
    return {{kBaseKey, QJsonObject{{kTypeKey, static_cast<int>(m_type)}, {kIdentifierKey, m_identifier}}}};
}

bool MessageBase::hasContent() const
{
    return !getText().isEmpty();
}

int MessageBase::getIdentifier() const
{
    return m_identifier;
}

void MessageBase::setIdentifier(int identifier)
{
    m_identifier = identifier;
}

MessageBase::MessageType MessageBase::getType() const
{
    return m_type;
}

void MessageBase::setType(MessageType type)
{
    m_type = type;
}

bool MessageBase::operator==(const MessageBase& other) const
{
    return serialiseMessage() == other.serialiseMessage();
}

std::vector<std::unique_ptr<MessageBase>> MessageBase::buildMessages(const QJsonArray& array)
{
    std::vector<std::unique_ptr<MessageBase>> messages;
    for (const QJsonValue value : array) {
        if (auto message = buildMessage(value))
            messages.push_back(std::move(message));
    }
    return messages;
}

void MessageBase::registerBuilder(const QString& classKey, Builder builder)
{
    builders()[classKey] = builder;
}
