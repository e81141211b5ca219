#pragma once

#include <QHostAddress>
#include <QStringList>

#include <chrono>
#include <optional>

class WzClientCoreApplicationBase;

/// What a command of wz_datacore is run with.
struct ToolContext {
    static constexpr char kProgramName[] = "wz_datacore";
    static constexpr std::chrono::seconds kDefaultTimeout{10};

    explicit ToolContext(WzClientCoreApplicationBase& program)
        : application(program)
    {
    }

    WzClientCoreApplicationBase& application;
    QStringList arguments; ///< as many as the command takes
    QHostAddress host{QHostAddress::LocalHost};
    std::optional<std::chrono::seconds> timeout;
    bool json = false;
    bool generator = false;
    int count = 0; ///< readings or changes after which the command ends; 0 for no end

    std::chrono::milliseconds timeoutOrDefault() const { return timeout.value_or(kDefaultTimeout); }
};
