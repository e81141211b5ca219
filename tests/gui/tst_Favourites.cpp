#include "gui/shell/Favourites.h"
#include "presets/WzClientPreset.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>

namespace {

Favourite window(const QString& title)
{
    return {Favourite::Kind::Window, title, title + QLatin1String("Content"), WindowRole::System};
}

Favourite layout(const QString& name)
{
    return {Favourite::Kind::Layout, name, {}, {}};
}

/// A preset whose favourites are these.
WzClientPreset presetWith(const QJsonValue& shortcuts)
{
    WzFavouriteShortcutsPreset section;
    section.set(QLatin1String("shortcuts"), shortcuts);
    WzClientPreset preset;
    preset.setFavouriteShortcutsPresets(section);
    return preset;
}

} // namespace

class tst_Favourites : public WzTest {
    Q_OBJECT
private slots:
    void thereIsRoomForTen()
    {
        Favourites favourites;
        QSignalSpy changes(&favourites, &Favourites::changed);
        for (int i = 0; i < 10; ++i)
            QVERIFY(favourites.pin(layout(QString::number(i))));
        QVERIFY(!favourites.pin(layout(QStringLiteral("one more"))));
        favourites.unpin(layout(QStringLiteral("3")));
        QVERIFY(!favourites.pin(layout(QStringLiteral("4"))));
        QVERIFY(favourites.pin(layout(QStringLiteral("one more"))));
        QCOMPARE(changes.size(), 12);
    }

    void presetsKeepThem()
    {
        Favourites favourites;
        favourites.pin(window(QStringLiteral("Scope")));
        favourites.pin(layout(QStringLiteral("Mine")));
        favourites.pin({Favourite::Kind::Command, QStringLiteral("screenshot"), {}, {}});
        favourites.noteRenamed(Favourite::Kind::Layout, QStringLiteral("Mine"), QStringLiteral("Yours"));
        // A window of that name is none of its business.
        favourites.noteRenamed(Favourite::Kind::Layout, QStringLiteral("Scope"), QStringLiteral("Other"));
        WzClientPreset preset;
        favourites.onPopulateClientPreset(preset);
        Favourites loaded;
        loaded.pin(layout(QStringLiteral("gone")));
        loaded.onLoadClientPreset(preset);
        QCOMPARE(loaded.all().size(), std::size_t(3));
        QVERIFY(loaded.all() == favourites.all());
        QCOMPARE(loaded.all()[1].name, QStringLiteral("Yours"));
        // A preset without the section leaves them.
        WzClientPreset other;
        loaded.onLoadClientPreset(other);
        QCOMPARE(loaded.all().size(), std::size_t(3));
    }

    void damagedEntriesAreLeftOut()
    {
        const QJsonObject good{{QStringLiteral("kind"), QStringLiteral("layout")},
                               {QStringLiteral("name"), QStringLiteral("A")}};
        QJsonArray shortcuts{good, good, 7, QJsonObject{{QStringLiteral("kind"), QStringLiteral("layout")}},
                             QJsonObject{{QStringLiteral("kind"), QStringLiteral("spoon")},
                                         {QStringLiteral("name"), QStringLiteral("B")}}};
        for (int i = 0; i < 20; ++i) {
            QJsonObject another = good;
            another.insert(QStringLiteral("name"), QString::number(i));
            shortcuts.append(another);
        }
        Favourites favourites;
        WzClientPreset preset = presetWith(shortcuts);
        favourites.onLoadClientPreset(preset);
        QCOMPARE(favourites.all().size(), Favourites::kMaximum);
        QCOMPARE(favourites.all()[0].name, QStringLiteral("A"));
        QCOMPARE(favourites.all()[1].name, QStringLiteral("0"));
        WzClientPreset nonsense = presetWith(QStringLiteral("nonsense"));
        favourites.onLoadClientPreset(nonsense);
        QCOMPARE(favourites.all().size(), Favourites::kMaximum); // as if there were no section
        WzClientPreset none = presetWith(QJsonArray());
        favourites.onLoadClientPreset(none);
        QVERIFY(favourites.all().empty());
    }
};

WZ_TEST_CLASS(tst_Favourites)
#include "tst_Favourites.moc"
