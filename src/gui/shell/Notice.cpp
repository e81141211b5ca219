#include "gui/shell/Notice.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr QSize kSize(360, 64);
constexpr int kPadding = 20;
constexpr int kIconSize = 24;
/// Above the function bar.
constexpr int kAboveBottom = 120;

} // namespace

Notice::Notice(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    hide();
}

void Notice::showMessage(const QString& iconName, const QString& text, const QString& detail)
{
    m_iconName = iconName;
    m_text = text;
    m_detail = detail;
    const int words = QFontMetrics(Fonts::ofPixels(Fonts::kBodyPixels)).horizontalAdvance(text + detail);
    const int wide = qMin(qMax(kSize.width(), words + 4 * kPadding + kIconSize), parentWidget()->width());
    const int left = (parentWidget()->width() - wide) / 2;
    setGeometry(left, parentWidget()->height() - kAboveBottom - kSize.height(), wide, kSize.height());
    raise();
    show();
    update();
    m_timer.start(kShownMs, this);
}

void Notice::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_style.colour(ColourRole::ToolTipBorder));
    painter.setBrush(m_style.colour(ColourRole::Raised));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.drawPixmap(kPadding, (height() - kIconSize) / 2,
                       Icons::pixmap(Icons::path(m_iconName), kIconSize, m_style.colour(ColourRole::Text),
                                     devicePixelRatioF()));
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(ColourRole::SecondaryText));
    const QRect room = rect().adjusted(kPadding + kIconSize + 12, 0, -kPadding, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, m_detail);
    const int detailWidth = painter.fontMetrics().horizontalAdvance(m_detail);
    const QRect textRoom = room.adjusted(0, 0, -detailWidth - 8, 0);
    painter.setPen(m_style.colour(ColourRole::Text));
    painter.drawText(textRoom, Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(m_text, Qt::ElideRight, textRoom.width()));
}

void Notice::timerEvent(QTimerEvent*)
{
    m_timer.stop();
    hide();
}

void Notice::mousePressEvent(QMouseEvent*)
{
    hide();
}
