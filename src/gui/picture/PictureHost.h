#pragma once

#include "feed/PictureReader.h"

#include <QHostAddress>
#include <QSize>

#include <memory>
#include <string>

/// Where pictures come from: the instrument that the client is connected to.
struct PictureHost {
    QHostAddress address;
    int instrumentPort = 0; ///< names the segments of one host's instruments
    quint16 feedPort = 0; ///< of the pictures for other hosts

    friend bool operator==(const PictureHost&, const PictureHost&) = default;

    /// The instrument at @p address with its usual ports.
    static PictureHost at(const QString& address);

    /// Whether the instrument runs on this machine, so that its pictures lie in shared memory.
    bool isThisMachine() const;
    /// The reader of an image, of which nothing larger than @p size is of use; null when there is no address.
    std::unique_ptr<Velmora::Feed::PictureReader> makeReader(const std::string& image, QSize size) const;
};
