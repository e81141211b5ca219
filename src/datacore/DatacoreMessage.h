#pragma once

#include "network/MessageBase.h"

#include <QLatin1String>

#include <array>
#include <optional>

/// Makes the three message classes of datacores known to MessageBase::buildMessages(). Every node does so
/// when it is made, and no such message arrives before there is a node.
void registerDatacoreMessages();

/// A message about a datacore: a number that says what is the matter, its content, and a text to it.
///
/// JSON form: that of MessageBase and, beside it, an empty object under the class name. @p Self gives its
/// name as kClassName and the texts as kTexts, indexed by content.
template<typename Self>
class DatacoreMessage : public MessageBase {
public:
    /// Type and content of a message whose JSON form is of another class.
    static constexpr MessageType kForeignType = MessageType(3);
    static constexpr int kForeignContent = 0;

    explicit DatacoreMessage(int content, MessageType type = MessageType::Error)
        : MessageBase(content, type)
    {
    }
    explicit DatacoreMessage(const QJsonObject& object)
        : MessageBase(object)
    {
        if (object.contains(Self::kClassName))
            return;
        MessageBase::setIdentifier(kForeignContent);
        MessageBase::setType(kForeignType);
    }

    QJsonObject serialiseMessage() const override
    {
        QJsonObject object = MessageBase::serialiseMessage();
        object.insert(Self::kClassName, QJsonObject());
        return object;
    }
    QString getClass() const override { return Self::kClassName; }
    QString getText() const override
    {
        const auto content = static_cast<size_t>(getIdentifier());
        return content < std::size(Self::kTexts) ? QString::fromLatin1(Self::kTexts[content]) : QString();
    }

    static std::unique_ptr<MessageBase> build(const QJsonObject& object)
    {
        auto message = std::make_unique<Self>(object);
        const int type = static_cast<int>(message->getType());
        return type < 0 || type > static_cast<int>(kForeignType) ? nullptr : std::move(message);
    }
};
