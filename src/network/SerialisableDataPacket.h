#pragma once

#include "network/JsonView.h"
#include "network/RawDataPacket.h"

#include <QJsonObject>
#include <QString>

#include <optional>
#include <vector>

struct QJsonParseError;

/// A packet that carries one JSON object, whose member "Class" names the packet's concrete type. Payload: the
/// length of the JSON text as a 32-bit number, then the object as compact JSON text.
///
/// A received packet is checked at once but keeps its text; the QJsonObject is built when somebody first asks
/// for it, for most packets are passed on, or dropped, for their class name alone. Not to be shared between
/// threads.
class SerialisableDataPacket : public RawDataPacket {
public:
    static constexpr PacketIdentifier kPacketIdentifier = PID_SERIALISABLE_DATA;
    /// Key of the member that holds the class name.
    static constexpr QLatin1String kClassKey{"Class", 5};

    /// An empty object.
    SerialisableDataPacket();
    /// The object {"Class": @p className}.
    explicit SerialisableDataPacket(const QString& className);
    /// A received packet. The length in front of the text is not checked. Text that does not parse gives an
    /// empty object and one error line; a document that is an array gives an empty object.
    SerialisableDataPacket(const QByteArray& frame, const Header& header);

    static SerialisableDataPacket fromJson(const QJsonObject& object);
    /// A packet of the @p compactJson that a JsonObjectWriter made: it is sent as it is.
    static SerialisableDataPacket fromCompactJson(const QByteArray& compactJson);
    /// The same for a caller who has just written @p className into it: the text is not read.
    static SerialisableDataPacket fromCompactJson(const QByteArray& compactJson, const QString& className);
    /// A packet from bare JSON text. A parse error is logged and returned in @p error; the object is empty
    /// then.
    static SerialisableDataPacket deserialise(const QByteArray& json, QJsonParseError& error);

    PacketIdentifier getPacketIdentifier() const override { return kPacketIdentifier; }
    QByteArray getSerialisedPayloadForTransmit() const override;

    /// The string under "Class"; empty when there is none.
    QString getPacketClassName() const;

    /// The object as compact JSON text.
    QByteArray serialise() const;
    /// Appends that text and returns how many bytes were appended.
    int serialiseTo(QByteArray& target) const;

    void insertOtherPacketIntoThis(const QString& key, const SerialisableDataPacket& other);
    void insertOtherPacketsIntoThis(const QString& key, const std::vector<SerialisableDataPacket>& others);
    /// The packet stored under @p key. @p ok tells whether there is an object there that is not empty.
    SerialisableDataPacket extractOtherPacketFromThis(const QString& key, bool& ok) const;
    /// The packets stored under @p key, in the order of the array. @p ok tells whether there is an array
    /// there that is not empty and holds objects only; otherwise none is returned.
    std::vector<SerialisableDataPacket> extractOtherPacketsFromThis(const QString& key, bool& ok) const;

    bool operator==(const SerialisableDataPacket& other) const;

    /// The packet as its concrete type, when its class name is that of a default-constructed Child; otherwise
    /// the default Child, and @p ok is false.
    template<typename Child>
    static Child createChildTypePacketFromParentTypePacket(const SerialisableDataPacket& parent, bool& ok);

protected:
    const QJsonObject& object() const;
    void setValue(const QString& key, const QJsonValue& value);

    /// The object as a view on the packet's text, until another text is read on this thread; absent when
    /// there is no text or only Qt can read it. What a packet class reads often it takes from here.
    JsonView view() const;
    /// The member @p key (ASCII), from the text where that will do; the empty string and 0 when there is none
    /// of that type.
    bool containsMember(QLatin1String key) const;
    QString stringMember(QLatin1String key) const;
    int intMember(QLatin1String key) const;

private:
    enum class Text { None, Received, Compact };

    void read(const char* json, qint64 size, QJsonParseError& error);
    const char* text() const;
    int textSize() const;

    /// What the packet's text is, and where: behind the length in the payload when received, else in
    /// m_compactText.
    Text m_text = Text::None;
    QByteArray m_compactText;
    QString m_className; ///< valid while there is a text
    mutable std::optional<QJsonObject> m_object;
    /// Under which number this thread has read the text last; 0 when only Qt can read it.
    mutable quint64 m_documentNumber = 0;
};

template<typename Child>
Child SerialisableDataPacket::createChildTypePacketFromParentTypePacket(const SerialisableDataPacket& parent,
                                                                        bool& ok)
{
    Child child;
    ok = parent.getPacketClassName() == child.getPacketClassName();
    if (ok)
        static_cast<SerialisableDataPacket&>(child) = parent;
    return child;
}
