#pragma once

#include "gui/control/ElementState.h"
#include "gui/framework/WzSubwindowContent.h"
#include "instruments/inputstatistics/FormatHistory.h"

#include <QBasicTimer>
#include <QElapsedTimer>

#include <functional>

class ReadOnlyRows;

/// Shows how steady the pictures at the input are: their format, since when, and how often it has changed
/// while the window was open.
class InputStatistics : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"InputStatistics", 15};
    static constexpr QLatin1String kIconName{"timing", 6};

    InputStatistics(WzSubWindow* subWindow, Velmora::Wz::Device device);

    QString helpText() const override;

    /// Asked why the element is inactive when somebody wants to know: an update does not tell.
    void setInactiveReasons(std::function<QStringList()> reasons);

public slots:
    void fromStatusCorePictureFormatUpdated(QStringList values, QStringList reasons, bool active);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void onExposedChanged(bool exposed) override;
    void onFrozenChanged(bool frozen) override;
    void onConnectionChanged(bool connected) override;

private:
    FormatHistory::Time now() const { return FormatHistory::Time(m_clock.elapsed()); }
    void resetCounts();
    void showRows();
    QString toolTipOf(int row) const;

    ReadOnlyRows* const m_rows;
    QElapsedTimer m_clock;
    FormatHistory m_history;
    ElementState m_format;
    std::function<QStringList()> m_inactiveReasons;
    QBasicTimer m_timer;
};
