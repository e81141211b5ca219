#pragma once

#include <QWidget>

#include <array>

class QPushButton;
struct PairLayout;

/// The buttons of a pair that choose what of it is heard: the pair, one of its channels alone, and which
/// channel goes to which side of the monitor output.
class PairButtons : public QWidget {
    Q_OBJECT
public:
    explicit PairButtons(QWidget* parent);

    void setMonitorVisible(bool visible);
    void setSoloVisible(bool visible);
    void setMixVisible(bool visible);
    /// Puts the rows that can be seen below each other.
    void place(const PairLayout& layout);

    void showMonitored(bool monitored);
    void showSolo(int side, bool solo);
    void showMix(int side, int output, bool mixed);

signals:
    void monitorToggled(bool monitored);
    void soloToggled(int side, bool solo);
    void mixToggled(int side, int output, bool mixed);

private:
    QPushButton* add(const QString& text, const QString& toolTip);

    QPushButton* m_monitor;
    std::array<QPushButton*, 2> m_solo;
    std::array<std::array<QPushButton*, 2>, 2> m_mix; ///< by output and side
    bool m_isMonitorVisible = false;
    bool m_isSoloVisible = false;
    bool m_isMixVisible = false;
};
