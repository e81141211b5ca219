#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class AboutDialog;

/// Connects the dialog with the versions with its element.
class AboutDialogConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectAboutDialogToDatacores(AboutDialog* dialog) const;

private:
    DatacoreLink m_softwareVersion;
};
