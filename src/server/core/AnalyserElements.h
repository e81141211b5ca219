#pragma once

#include "server/core/DatacoreService.h"
#include "server/core/InstrumentTrees.h"
#include "types/sdi/PayloadIdTypes.h"

#include <QObject>
#include <QPoint>

#include <optional>

class DatacoreBool;
class DatacorePoint;

namespace Velmora::Server {

class ChoiceNode;

/// What holds for every measurement of pictures: which input is measured, which pixel the user has chosen,
/// and what is taken for true in place of what the payload identifier says.
class AnalyserElements : public QObject {
    Q_OBJECT
public:
    /// Adds its elements to the trees.
    AnalyserElements(InstrumentTrees& trees, DatacoreService& datacores);

    /// In place of what the signal says of itself.
    std::optional<Sdi::PayloadId::Colourimetry> colourimetry() const;
    /// As it was chosen; it may lie outside the picture.
    QPoint pictureCursor() const { return m_cursorPosition; }

signals:
    void changed();

private:
    void addPictureCursor();
    void addOverrides();
    void addNetworkInputs();

    InstrumentTrees& m_trees;
    DatacoreService& m_datacores;
    ChoiceNode* m_colourimetry = nullptr;
    DatacoreBool* m_isColourimetryOverridden = nullptr;
    DatacorePoint* m_cursor = nullptr;
    QPoint m_cursorPosition;
    QString m_chosenColourimetry;
};

} // namespace Velmora::Server
