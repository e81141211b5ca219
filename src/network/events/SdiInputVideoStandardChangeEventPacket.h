#pragma once

#include "network/events/TextEventPacket.h"

/// The SDI input has another video standard.
class SdiInputVideoStandardChangeEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("SdiInputVideoStandardChangeEventPacket");

    explicit SdiInputVideoStandardChangeEventPacket(const QString& standard = QString())
        : TextEventPacket(kClassName, EventKind::VideoStandard, latin1("standard"), standard)
    {
    }

    QString getEventCustomMessage() const override
    {
        return QLatin1String("New SDI video standard ") + TextEventPacket::getEventCustomMessage();
    }
};
