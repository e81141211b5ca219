#include "gui/style/Fonts.h"

#include <QApplication>

namespace Fonts {

QString family()
{
    return QStringLiteral("DejaVu Sans");
}

QFont ofPixels(int pixels, bool bold)
{
    QFont font(family());
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

} // namespace Fonts

void initiateFonts()
{
    QFont font(Fonts::family());
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(QApplication::font().pointSizeF());
    QApplication::setFont(font);
}
