#pragma once

#include "gui/control/ReadOnlyRows.h"
#include "gui/framework/WzSubwindowContent.h"
#include "instruments/diagnostics/ClientFigures.h"
#include "instruments/diagnostics/DrawClock.h"

#include <QBasicTimer>

/// Shows how the client itself is doing: what comes in, what drawing costs, and where it is held up. It
/// measures only while it can be seen.
class Diagnostics : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"Diagnostics", 11};

    /// The figures outlive the window.
    Diagnostics(WzSubWindow* subWindow, Velmora::Wz::Device device, ClientFigures& figures);
    ~Diagnostics() override;

    QString helpText() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void onExposedChanged(bool exposed) override;

private:
    struct Line {
        ReadOnlyRows::Row row;
        QString toolTip;
    };

    void refresh();
    std::vector<Line> linesOf(const ClientFigures::Reading& reading,
                              const std::vector<DrawClock::Share>& shares) const;

    ClientFigures& m_figures;
    ReadOnlyRows* const m_rows;
    QStringList m_toolTips;
    QBasicTimer m_timer;
};
