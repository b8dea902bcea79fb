// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QRandomGenerator>
#include <QtTest>

#include <zokit/carryover.h>
#include <zokit/differences.h>
#include <zokit/presets.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/valuetext.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::CarryOver;
using zokit::FileSettings;
using zokit::Project;
using zokit::Settings;

class TestKitRandomCarryOver : public QObject {
    Q_OBJECT

private slots:
    void dryRunIsTheOutcome();
};

namespace {

template <typename List>
auto any(const List& list, QRandomGenerator& random)
{
    return list.at(random.bounded(static_cast<int>(list.size())));
}

/// Something that \a source may or may not hold.
QString anythingOf(const Settings& source, QRandomGenerator& random)
{
    const QString type =
        any(zokit::effectTypes() + QStringList{key("Watermark"), key("Output"), key("Tracks")}, random);
    const zokit::TypeSettings* there = source.find(type);
    const int items = there ? static_cast<int>(there->items.size()) : 0;
    QString text = type;
    if (items > 0 && random.bounded(2) == 1)
        text += QLatin1Char(':') + QString::number(random.bounded(items));
    if (random.bounded(3) == 0) {
        QStringList names{key("selected"), key("anchor")};
        for (const zokit::Property& property : zokit::properties()) {
            if (property.type == type)
                names.append(property.key);
        }
        text += QLatin1Char(':') + any(names, random);
    }
    return text;
}

/// Settings of a file, a preset of them, or either without some of its values.
Settings anySource(const Project& project, QRandomGenerator& random)
{
    Settings source = any(project.files(), random)->settings();
    switch (random.bounded(4)) {
    case 0:
        source = zokit::presetFrom(source, {any(zokit::effectTypes(), random), key("Watermark"), key("Output")});
        break;
    case 1:
        for (zokit::TypeSettings& type : source.effects) {
            if (!type.values.isEmpty())
                type.values.remove(any(type.values.keys(), random));
            for (zokit::Item& item : type.items)
                item.values.remove(any(item.values.keys(), random));
        }
        break;
    default:
        break;
    }
    return source;
}

QString firstDifference(const Settings& a, const Settings& b)
{
    const QVector<zokit::Difference> found = zokit::differences(a, b);
    if (found.isEmpty())
        return QStringLiteral("nothing that has an address");
    const zokit::Address& address = found.first().address;
    return QStringLiteral("%1: %2, %3")
        .arg(address.toString(), zokit::valueAsText(address, found.first().a),
             zokit::valueAsText(address, found.first().b));
}

/// How many random cases: ZOKIT_CASES, for more of them and for less time under sanitizers.
int wantedCases()
{
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("ZOKIT_CASES", &isNumber);
    return isNumber ? wanted : 10000;
}

} // namespace

void TestKitRandomCarryOver::dryRunIsTheOutcome()
{
    QRandomGenerator random(20261122);
    const int total = wantedCases();
    int applied = 0;
    for (int done = 0; done < total;) {
        clearSavedDefaults();
        Project project;
        for (const QSize& frame : {QSize(1280, 720), QSize(333, 777), QSize(1920, 1080)})
            project.add(zokit::Media{QString(), frame, 1.0});
        for (int i = 0; i < 50; ++i)
            randomEdit(project, random);
        const Settings source = anySource(project, random);
        for (int i = 0; i < 100 && done < total; ++i, ++done) {
            FileSettings* target = any(project.files(), random);
            CarryOver carry{{}, random.bounded(3) == 0};
            for (int wanted = random.bounded(4); wanted > 0; --wanted)
                carry.what.append(anythingOf(source, random));
            const Settings before = target->settings();
            const Settings dry = zokit::carriedOver(source, before, carry);
            const zokit::Message error = project.apply(source, {target}, carry);
            QCOMPARE(error.text(), zokit::checkCarryOver(source, carry).text());
            const Settings after = target->settings();
            if (error.isEmpty()) {
                const QString what = carry.what.join(QLatin1Char(' '));
                QVERIFY2(
                    after == dry,
                    qPrintable(QStringLiteral("case %1: %2; %3").arg(done).arg(what, firstDifference(dry, after))));
                QVERIFY2(zokit::carriedOver(source, dry, carry) == dry,
                         qPrintable(QStringLiteral("case %1, twice: %2").arg(done).arg(what)));
                ++applied;
            } else {
                QVERIFY(after == before);
            }
            if (i % 10 == 0)
                randomEdit(project, random);
        }
    }
    QVERIFY(applied > total / 3);
}

ZOEFFECT_TEST_MAIN(TestKitRandomCarryOver)
#include "tst_kit_randomcarryover.moc"
