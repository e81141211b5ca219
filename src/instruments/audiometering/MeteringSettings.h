#pragma once

#include "gui/control/Setting.h"
#include "types/Device.h"
#include "types/Types.h"

class SettingList;

/// The settings of the audio metering, in the order of its menu. They belong to the list.
struct MeteringSettings {
    MeteringSettings(SettingList& list, Velmora::Wz::Device device);

    // Those of the instrument.
    Setting* scale;
    Setting* ballistics;
    Setting* hatHoldTime;
    Setting* resetPeaks;

    // Those of the window.
    Setting* input;
    Setting* pairs;
    Setting* firstPair;
    Setting* blending;
    Setting* dolbyELineMode;
    Setting* program;
    Setting* monitorButtons;
    Setting* soloButtons;
    Setting* mixButtons;

    Velmora::Types::AudioInput chosenInput() const;
    int chosenProgram() const { return program->value().toInt(); } ///< counts from 0
    int chosenPairs() const { return pairs->value().toInt(); } ///< 0 for as many as there are
    int chosenFirstPair() const { return firstPair->value().toInt() - 1; } ///< counts from 0
    bool isDolbyELineRelative() const { return dolbyELineMode->isOn(); }
    /// How many rows of buttons there are.
    int buttonRows() const;
};
