#include "instruments/waveform/MeasurementCursorSettings.h"

#include "instruments/waveform/WaveformActions.h"
#include "instruments/waveform/WaveformClientPreset.h"

#include <algorithm>
#include <cmath>

using Axis = MeasurementCursors::Axis;
using Cursor = MeasurementCursors::Cursor;

namespace {

int positionOf(const Setting& setting)
{
    return static_cast<int>(std::lround(setting.number() * 1000.0));
}

void show(Setting& setting, double least, double most, int position)
{
    setting.setRange({least, most, 0.1, 2, QStringLiteral("%")});
    setting.fromElement({QString::number(position * 0.001, 'f', 2)}, {}, true);
}

} // namespace

MeasurementCursorSettings::MeasurementCursorSettings(const WaveformActions& actions, QObject* parent)
    : QObject(parent)
    , m_actions(actions)
{
    for (const Setting* const setting :
         {actions.cursors, actions.cursorAxis, actions.cursorValues, actions.cursorAdjustment,
          actions.cursorScaleX, actions.cursorScaleY})
        connect(setting, &Setting::changed, this, &MeasurementCursorSettings::update);
    connect(actions.refPosition, &Setting::chosen, this,
            [this] { moveTo(Cursor::Reference, positionOf(*m_actions.refPosition)); });
    connect(actions.deltaPosition, &Setting::chosen, this,
            [this] { moveTo(Cursor::Delta, positionOf(*m_actions.deltaPosition)); });
    connect(actions.differential, &Setting::chosen, this, [this] {
        m_cursors.setDifferential(m_cursors.axis(), positionOf(*m_actions.differential));
        update();
    });
    connect(actions.setReference, &Setting::chosen, this,
            [this] { setPercentReference(m_cursors.position(Axis::Y, Cursor::Reference)); });
    connect(actions.resetReference, &Setting::chosen, this, [this] { setPercentReference(0); });
    update();
}

void MeasurementCursorSettings::moveTo(Cursor cursor, int position)
{
    m_cursors.moveTo(m_cursors.axis(), cursor, position);
    update();
}

void MeasurementCursorSettings::setReadOutCorner(Qt::Corner corner)
{
    m_scale.corner = corner;
    update();
}

void MeasurementCursorSettings::setPercentReference(int level)
{
    m_scale.percentReference = level;
    update();
}

void MeasurementCursorSettings::update()
{
    m_cursors.setShown(choiceOf(*m_actions.cursors, MeasurementCursors::Shown::Both));
    m_cursors.setAxis(choiceOf(*m_actions.cursorAxis, Axis::Y));
    m_cursors.setLinked(m_actions.cursorAdjustment->value() == QLatin1String("1"));
    m_scale.x = choiceOf(*m_actions.cursorScaleX, MeasurementCursorLabels::XScaleMode::Frequency);
    m_scale.y = choiceOf(*m_actions.cursorScaleY, MeasurementCursorLabels::YScaleMode::Nits);
    m_scale.isDisplayed = m_actions.cursorValues->value() == QLatin1String("0");
    const Axis axis = m_cursors.axis();
    const double least = MeasurementCursors::least(axis) * 0.001;
    const double most = MeasurementCursors::most(axis) * 0.001;
    show(*m_actions.refPosition, least, most, m_cursors.position(axis, Cursor::Reference));
    show(*m_actions.deltaPosition, least, most, m_cursors.position(axis, Cursor::Delta));
    show(*m_actions.differential, least - most, most - least, m_cursors.differential(axis));
    emit changed();
}

void MeasurementCursorSettings::save(WaveformClientPreset& preset) const
{
    for (const Axis axis : {Axis::X, Axis::Y}) {
        for (const Cursor cursor : {Cursor::Reference, Cursor::Delta})
            preset.setCursorPosition(axis, cursor, m_cursors.position(axis, cursor));
    }
    preset.setPercentReference(m_scale.percentReference);
    preset.setReadOutCorner(m_scale.corner);
}

void MeasurementCursorSettings::restore(const WaveformClientPreset& preset)
{
    // One by one, wherever the other is.
    m_cursors.setLinked(false);
    for (const Axis axis : {Axis::X, Axis::Y}) {
        for (const Cursor cursor : {Cursor::Reference, Cursor::Delta}) {
            if (preset.containsCursorPosition(axis, cursor))
                m_cursors.moveTo(axis, cursor, preset.getCursorPosition(axis, cursor));
        }
    }
    if (preset.containsPercentReference())
        m_scale.percentReference =
            std::clamp(preset.getPercentReference(), MeasurementCursors::least(Axis::Y),
                       MeasurementCursors::most(Axis::Y));
    if (preset.containsReadOutCorner())
        m_scale.corner = preset.getReadOutCorner();
    update();
}
