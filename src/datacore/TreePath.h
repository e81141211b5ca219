#pragma once

#include "datacore/DatacoreTree.h"

#include <QString>

namespace ServerCommon {

/// The whole path of an element: with the name of its tree's root before it.
inline QString treePath(DatacoreTree tree, QLatin1String path)
{
    return *rootName(tree) + QLatin1Char('/') + path;
}

} // namespace ServerCommon
