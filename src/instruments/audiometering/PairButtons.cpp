#include "instruments/audiometering/PairButtons.h"

#include "instruments/audiometering/MeteringLayout.h"

#include <QPushButton>

PairButtons::PairButtons(QWidget* parent)
    : QWidget(parent)
    , m_monitor(add(tr("Mon"), tr("Hear this pair")))
{
    connect(m_monitor, &QPushButton::clicked, this, &PairButtons::monitorToggled);
    for (int side = 0; side < 2; ++side) {
        auto& solo = m_solo[static_cast<std::size_t>(side)];
        solo = add(tr("S"), tr("Solo: hear this channel alone"));
        connect(solo, &QPushButton::clicked, this, [this, side](bool on) { emit soloToggled(side, on); });
    }
    for (int output = 0; output < 2; ++output) {
        for (int side = 0; side < 2; ++side) {
            auto& mix = m_mix[static_cast<std::size_t>(output)][static_cast<std::size_t>(side)];
            mix = output == 0 ? add(tr("L"), tr("Mix into the left side of the monitor output"))
                              : add(tr("R"), tr("Mix into the right side of the monitor output"));
            connect(mix, &QPushButton::clicked, this,
                    [this, side, output](bool on) { emit mixToggled(side, output, on); });
        }
    }
}

QPushButton* PairButtons::add(const QString& text, const QString& toolTip)
{
    auto* const button = new QPushButton(text, this);
    button->setCheckable(true);
    button->setToolTip(toolTip);
    button->hide();
    return button;
}

void PairButtons::setMonitorVisible(bool visible)
{
    m_isMonitorVisible = visible;
    m_monitor->setVisible(visible);
}

void PairButtons::setSoloVisible(bool visible)
{
    m_isSoloVisible = visible;
    for (QPushButton* const button : m_solo)
        button->setVisible(visible);
}

void PairButtons::setMixVisible(bool visible)
{
    m_isMixVisible = visible;
    for (const auto& row : m_mix) {
        for (QPushButton* const button : row)
            button->setVisible(visible);
    }
}

void PairButtons::place(const PairLayout& layout)
{
    int row = 0;
    const QPoint origin = layout.button(0, 0, 1).topLeft();
    const auto at = [&](int column, int columns) {
        return layout.button(row, column, columns).translated(-origin);
    };
    const auto placeRow = [&](const std::array<QPushButton*, 2>& buttons) {
        buttons[0]->setGeometry(at(0, 2));
        buttons[1]->setGeometry(at(1, 2));
        ++row;
    };
    if (m_isMonitorVisible) {
        m_monitor->setGeometry(at(0, 1));
        ++row;
    }
    if (m_isSoloVisible)
        placeRow(m_solo);
    if (m_isMixVisible) {
        placeRow(m_mix[0]);
        placeRow(m_mix[1]);
    }
    setGeometry(QRect(origin, QSize(layout.pitch, row * MeteringLayout::kButtonHeight)));
}

void PairButtons::showMonitored(bool monitored)
{
    m_monitor->setChecked(monitored);
}

void PairButtons::showSolo(int side, bool solo)
{
    m_solo[static_cast<std::size_t>(side)]->setChecked(solo);
}

void PairButtons::showMix(int side, int output, bool mixed)
{
    m_mix[static_cast<std::size_t>(output)][static_cast<std::size_t>(side)]->setChecked(mixed);
}
