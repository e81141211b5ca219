// What nearly every source includes of others' headers, compiled once for each target where no compiler cache
// does better (see WzSettings.cmake). Sources include what they use all the same.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariant>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#ifdef SPDLOG_COMPILED_LIB
#include <spdlog/spdlog.h>
#endif
#ifdef QT_NETWORK_LIB
#include <QHostAddress>
#include <QTcpSocket>
#endif
#ifdef QT_GUI_LIB
#include <QImage>
#include <QPainter>
#endif
#ifdef QT_WIDGETS_LIB
#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QWidget>
#endif
#ifdef QT_TESTLIB_LIB
#include <QSignalSpy>
#include <QTest>
#endif
