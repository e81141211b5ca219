#pragma once

#include "network/JsonView.h"

#include <QString>

#include <optional>
#include <string_view>

/// Reads single members of a JSON object straight from its bytes, without building a QJsonObject.
///
/// A QJsonDocument costs several times as much as everything else that happens to a small packet on its way
/// to its acceptor. What this reader accepts, and every value that it yields, is what Qt would make of the
/// same bytes; where it cannot promise that, its verdict is AskQt.
///
/// All readers of a thread share one parser: making a reader ends the use of the one made before.
class JsonObjectReader {
public:
    enum class Verdict {
        Object, ///< a valid document that is an object: members can be read
        Array, ///< a valid document that is an array: there are no members
        AskQt, ///< faulty, or outside what is read alike here and there: let QJsonDocument decide
    };

    /// Longer documents are left to Qt, to keep the shared parser small.
    static constexpr qint64 kSizeLimit = 1024 * 1024;

    /// Checks the @p size bytes at @p data as a whole document.
    JsonObjectReader(const char* data, qint64 size);

    Verdict verdict() const { return m_verdict; }

    /// The document as a value of which members can be read; absent unless the verdict is Object.
    JsonView root() const;
    /// Tells the documents of a thread apart, see documentRead().
    quint64 documentNumber() const { return m_document; }
    /// The root of the object that this thread has read as number @p documentNumber, so that it need not be
    /// read twice; absent when another one has been read since.
    static JsonView documentRead(quint64 documentNumber);

    /// The member @p key (ASCII) as a string; nothing when it is absent or not a string.
    std::optional<QString> string(std::string_view key) const;
    /// The member @p key (ASCII) as an integer; nothing when it is absent or not an integer of 64 bits.
    std::optional<qint64> integer(std::string_view key) const;
    bool contains(std::string_view key) const;

private:
    Verdict m_verdict = Verdict::AskQt;
    quint64 m_document = 0;
};
