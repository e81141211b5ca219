#pragma once

#include <QObject>

class WzClientPreset;

/// What the rest of an application needs of its user interface.
class GuiManagerBase : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

public slots:
    /// Every part of the user interface adds its section to the preset.
    virtual void onPopulateClientPreset(WzClientPreset& preset) = 0;
    /// Every part takes its section, if there is one.
    virtual void onLoadClientPreset(WzClientPreset& preset) = 0;

signals:
    void userPresetCreationRequested(QString name);
    void userPresetUpdateRequested(QString name);
    void userPresetLoadRequested(QString name);
    void userPresetRenameRequested(QString oldName, QString newName);
    void userPresetDeleteRequested(QString name);
    void saveLastKnownStateRequested();
};
