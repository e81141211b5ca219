#include "support/LogCapture.h"

#include "logging/LogThrottle.h"
#include "logging/Logging.h"

#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <algorithm>

class LogCapture::Sink : public spdlog::sinks::base_sink<std::mutex> {
public:
    QStringList lines()
    {
        const std::lock_guard lock(mutex_);
        return m_lines;
    }
    void clear()
    {
        const std::lock_guard lock(mutex_);
        m_lines.clear();
    }

protected:
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        const auto level = spdlog::level::to_short_c_str(message.level);
        m_lines << QLatin1String(level) + QLatin1Char(' ')
                + QString::fromUtf8(message.payload.data(), static_cast<int>(message.payload.size()));
    }
    void flush_() override { }

private:
    QStringList m_lines;
};

LogCapture::LogCapture()
    : m_sink(std::make_shared<Sink>())
{
    Velmora::LogThrottle::resetAll();
    auto logger = std::make_shared<spdlog::logger>(Velmora::kLoggerName, m_sink);
    logger->set_level(spdlog::level::trace);
    spdlog::drop(Velmora::kLoggerName);
    spdlog::register_logger(logger);
}

LogCapture::~LogCapture()
{
    spdlog::drop(Velmora::kLoggerName);
}

QStringList LogCapture::lines() const
{
    return m_sink->lines();
}

int LogCapture::count(const QString& text) const
{
    const auto all = lines();
    return static_cast<int>(
        std::count_if(all.begin(), all.end(), [&](const QString& line) { return line.contains(text); }));
}

void LogCapture::clear()
{
    const QStringList missing = missingErrors();
    m_announcedBefore += m_expectedErrors;
    m_expectedErrors = missing;
    m_sink->clear();
}

void LogCapture::expectError(const QString& text)
{
    m_expectedErrors << text;
}

QStringList LogCapture::errorLines() const
{
    QStringList errors = lines();
    const auto isNoError = [](const QString& line) {
        return !line.startsWith(QLatin1String("E ")) && !line.startsWith(QLatin1String("C "));
    };
    errors.erase(std::remove_if(errors.begin(), errors.end(), isNoError), errors.end());
    return errors;
}

QStringList LogCapture::unexpectedErrors() const
{
    const QStringList announced = m_expectedErrors + m_announcedBefore;
    QStringList unexpected;
    for (const QString& line : errorLines()) {
        const auto isOf = [&](const QString& text) { return line.contains(text); };
        if (std::none_of(announced.begin(), announced.end(), isOf))
            unexpected << line;
    }
    return unexpected;
}

QStringList LogCapture::missingErrors() const
{
    const QStringList errors = errorLines();
    QStringList missing;
    for (const QString& text : m_expectedErrors) {
        const auto hasIt = [&](const QString& line) { return line.contains(text); };
        if (std::none_of(errors.begin(), errors.end(), hasIt))
            missing << text;
    }
    return missing;
}
