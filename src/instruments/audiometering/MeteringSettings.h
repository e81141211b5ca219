#pragma once

#include "gui/control/Setting.h"
#include "types/Device.h"
#include "types/Types.h"

class SettingList;

/// The settings of the audio metering, in the order of its menu. They belong to the list.
struct MeteringSettings {
    MeteringSettings(SettingList& list, Velmora::Wz::Device device);

    // Those of the instrument.
    Setting* scale = nullptr;
    Setting* ballistics = nullptr;
    Setting* hatHoldTime = nullptr;
    Setting* resetPeaks = nullptr;

    // Those of the window.
    Setting* input = nullptr;
    Setting* pairs = nullptr;
    Setting* firstPair = nullptr;
    Setting* blending = nullptr;
    Setting* dolbyELineMode = nullptr;
    Setting* program = nullptr;
    Setting* monitorButtons = nullptr;
    Setting* soloButtons = nullptr;
    Setting* mixButtons = nullptr;

    Velmora::Types::AudioInput chosenInput() const;
    int chosenProgram() const { return program->value().toInt(); } ///< counts from 0
    int chosenPairs() const { return pairs->value().toInt(); } ///< 0 for as many as there are
    int chosenFirstPair() const { return firstPair->value().toInt() - 1; } ///< counts from 0
    bool isDolbyELineRelative() const { return dolbyELineMode->isOn(); }
    /// How many rows of buttons there are.
    int buttonRows() const;

private:
    void addDisplay(SettingList& group);
    void addDolbyE(SettingList& group);
    void addMonitoring(SettingList& group);
};
