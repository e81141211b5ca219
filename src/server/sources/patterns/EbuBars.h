#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// Full-field bars of eight equal columns, named by their levels as in BT.471: 100/0/100/0 has white and
/// colours at 100 %, 100/0/75/0 white at 100 % and colours at 75 %, 75/0/75/0 all at 75 %.
class EbuBars : public Pattern {
public:
    EbuBars(double whiteLevel, double colourLevel);

    void paint(PictureCanvas& canvas) const override;

private:
    double m_whiteLevel;
    double m_colourLevel;
};

} // namespace Velmora::Server
