#pragma once

#include <QJsonObject>
#include <QString>

#include <memory>
#include <vector>

class QJsonArray;

/// A small JSON message with a type and an identifier, base of the messages that report a datacore's
/// problems.
class MessageBase {
public:
    /// Types 1 and 2 are shown as a warning and as an error, every other value as information.
    enum class MessageType : int {
        Information = 0,
        Warning = 1,
        Error = 2,
    };

    /// Makes a message of one class from its JSON form; null when the class cannot handle the type.
    using Builder = std::unique_ptr<MessageBase> (*)(const QJsonObject& object);

    MessageBase(int identifier, MessageType type);
    /// Reads what serialiseMessage() writes; what is missing reads as 0.
    explicit MessageBase(const QJsonObject& object);
    virtual ~MessageBase();
    MessageBase(const MessageBase&) = default;
    MessageBase& operator=(const MessageBase&) = default;

    /// {"MessageBase": {"type": type, "identifier": identifier}}; subclasses add keys of their own beside it.
    virtual QJsonObject serialiseMessage() const;
    virtual QString getClass() const = 0;
    virtual QString getText() const = 0;
    /// Whether there is a text to show.
    virtual bool hasContent() const;
    virtual int getIdentifier() const;
    virtual void setIdentifier(int identifier);
    virtual MessageType getType() const;
    virtual void setType(MessageType type);
    virtual bool operator==(const MessageBase& other) const;

    /// The messages of @p array in order. What is no message, or none of a class known here, is skipped with
    /// an error line.
    static std::vector<std::unique_ptr<MessageBase>> buildMessages(const QJsonArray& array);

    /// Makes the message classes known whose JSON form has the key @p classKey. The layer that owns the class
    /// calls it, since this one knows none of them.
    static void registerBuilder(const QString& classKey, Builder builder);

private:
    int m_identifier = 0;
    MessageType m_type = MessageType::Information;
};
