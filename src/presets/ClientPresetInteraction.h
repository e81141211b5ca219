#pragma once

#include "presets/WzClientPreset.h"

/// One request to the server about presets.
class ClientPresetInteraction : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"ClientPresetEncapsulator", 24};

    /// The numbers are on the wire.
    enum class Interaction {
        None = 0,
        LoadPreset = 1,
        CreateNewPreset = 2,
        OverwriteExistingPreset = 3,
        UpdateExistingPresetName = 4,
        DeletePreset = 5,
        SaveLastKnownClientState = 6,
    };

    ClientPresetInteraction();

    void setupAsLoadPresetInteraction(const QString& name);
    void setupAsCreateNewPresetInteraction(const WzClientPreset& preset, const QString& name);
    void setupAsOverwriteExistingPresetInteraction(const WzClientPreset& preset, const QString& name);
    void setupAsUpdateExistingPresetNameInteraction(const QString& newName, const QString& name);
    void setupAsDeletePresetInteraction(const QString& name);
    void setupAsSaveLastKnownClientStateInteraction(const WzClientPreset& preset);
    /// Clears what a set-up has written.
    void resetInteractionSetup();

    /// None when there is none, or a number that no interaction has.
    Interaction getInteraction() const;
    bool containsPresetName() const;
    QString getPresetName() const;
    bool containsClientPreset() const;
    WzClientPreset getClientPreset() const;
    bool containsNewPresetName() const;
    QString getNewPresetName() const;

private:
    void setup(Interaction interaction);
};
