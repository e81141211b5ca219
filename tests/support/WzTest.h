#pragma once

#include "support/LogCapture.h"

#include <QObject>
#include <QTest>

#include <optional>

/// Base of every test class: each test function runs with a fresh log and fails on an error line that it did
/// not announce with log().expectError(), and on one that it announced and that does not come. A class with
/// its own init() or cleanup() calls these.
class WzTest : public QObject {
    Q_OBJECT
public:
    LogCapture& log() { return *m_log; }

protected slots:
    void init();
    void cleanup();

private:
    std::optional<LogCapture> m_log;
};
