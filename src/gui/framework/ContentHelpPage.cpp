#include "gui/framework/ContentHelpPage.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QKeyEvent>

ContentHelpPage::ContentHelpPage(const QString& text, const WzCustomStyle& style, QWidget* parent)
    : QTextBrowser(parent)
{
    setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    setFrameShape(QFrame::NoFrame);
    setContextMenuPolicy(Qt::NoContextMenu);
    document()->setDocumentMargin(16);
    const auto takeColours = [this, &style] {
        QPalette colours = palette();
        colours.setColor(QPalette::Base, style.colour(ColourRole::Background));
        setPalette(colours);
    };
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, takeColours);
    takeColours();
    setHtml(text);
}

void ContentHelpPage::mouseReleaseEvent(QMouseEvent* event)
{
    QTextBrowser::mouseReleaseEvent(event);
    hide();
}

void ContentHelpPage::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QTextBrowser::keyPressEvent(event);
}
