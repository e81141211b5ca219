#pragma once

#include "datacore/DatacoreElement.h"

#include "logging/LogThrottle.h"
#include "network/JsonObjectWriter.h"

#include <QJsonArray>

#include <algorithm>
#include <optional>

/// A list of reasons why a node is not as it should be; empty when all is well.
template<typename Self, typename Message>
class DatacoreStatusElement : public DatacoreElement<Self> {
public:
    static constexpr bool kIsStatus = true;
    /// A node with more reasons than this is refused.
    static constexpr int kReasonLimit = 1024;
    using Reasons = std::list<Message>;
    using Change = std::optional<Reasons>;

    using DatacoreElement<Self>::DatacoreElement;

    QJsonValue toJson(bool skipStatus) const
    {
        return skipStatus ? QJsonValue(QJsonValue::Undefined) : QJsonValue(asJsonArray());
    }

    void write(JsonObjectWriter& writer) const
    {
        writer.beginArray(this->keyView());
        for (const Message& reason : m_reasons) {
            writer.beginItem();
            writer.beginObject(asciiView(Message::kClassName)).endObject();
            writer.beginObject(kBaseKey);
            writer.integer(kIdentifierKey, reason.getIdentifier());
            writer.integer(kTypeKey, static_cast<int>(reason.getType()));
            writer.endObject().endObject();
        }
        writer.endArray();
    }

    template<typename View>
    bool read(const View& value, Change& change, std::list<DatacoreJsonMessage>& /*messages*/) const
    {
        if (!value.isArray())
            return false;
        Reasons received;
        size_t room = kReasonLimit;
        const bool complete = value.forEachItem([&](const View& item) {
            received.push_back(message(item));
            return room-- > 0;
        });
        if (!complete) {
            static Velmora::LogThrottle throttle;
            throttle.log(spdlog::level::err, "DatacoreStatusElement: more than {} reasons refused",
                         int{kReasonLimit});
            return false;
        }
        if (!isSame(received, m_reasons))
            change = std::move(received);
        return true;
    }

    void apply(Change&& change)
    {
        if (change)
            m_reasons = std::move(*change);
    }

protected:
    const Reasons& reasons() const { return m_reasons; }

    void setReasons(const Reasons& reasons)
    {
        if (isSame(reasons, m_reasons))
            return;
        m_reasons = reasons;
        this->node().notifyElementChangedFromDirect();
    }

    QJsonArray asJsonArray() const
    {
        QJsonArray array;
        for (const Message& reason : m_reasons)
            array.append(reason.serialiseMessage());
        return array;
    }

private:
    static constexpr std::string_view kBaseKey = "MessageBase";
    static constexpr std::string_view kIdentifierKey = "identifier";
    static constexpr std::string_view kTypeKey = "type";

    /// What the constructor from a QJsonObject makes of the item, also when it is no object.
    template<typename View>
    static Message message(const View& item)
    {
        if (item.member(asciiView(Message::kClassName)).isAbsent())
            return Message(Message::kForeignContent, Message::kForeignType);
        const View base = item.member(kBaseKey);
        return Message(number(base.member(kIdentifierKey)),
                       MessageBase::MessageType(number(base.member(kTypeKey))));
    }

    template<typename View>
    static int number(const View& value)
    {
        const qint64 wide = value.integer().value_or(0);
        return wide == static_cast<int>(wide) ? static_cast<int>(wide) : 0;
    }

    static bool isSame(const Reasons& a, const Reasons& b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Message& x, const Message& y) {
            return x.getIdentifier() == y.getIdentifier() && x.getType() == y.getType();
        });
    }

    Reasons m_reasons;
};
