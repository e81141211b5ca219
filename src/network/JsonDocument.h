#pragma once

#include <QtGlobal>

#include <simdjson.h>

/// The parser of one thread with the document that it has read last. Its buffers stay, so that a small packet
/// costs no allocation. For JsonObjectReader and JsonView only.
struct JsonDocument {
    /// Half of Qt's own limit: whatever nests deeper is left to Qt.
    static constexpr size_t kDepthLimit = 512;

    JsonDocument();

    static JsonDocument& ofThisThread();

    simdjson::dom::parser parser;
    simdjson::dom::element root;
    bool usable = false;
    bool isObject = false; ///< the last document is one that can be looked at
    /// Counts the documents read; never 0, and of another range in every thread, since packets that remember
    /// it may change threads.
    quint64 number = 0;
};
