// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Random sessions over the settings of a file, each step foretold on plain maps of keys to values.

#include <QRandomGenerator>
#include <QtTest>

#include <zokit/properties.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::Change;
using zokit::FileSettings;
using zokit::Identity;
using zokit::Values;
using Code = zokit::Message::Code;

class TestKitRandomSettings : public QObject {
    Q_OBJECT

private slots:
    void everyStepDoesWhatAPlainMapDoes();
};

namespace {

const QStringList lists{QStringLiteral("Watermark"), QStringLiteral("Subtitle"), QStringLiteral("Audio")};
const QString selected = QStringLiteral("selected");

/// The settings as a person knows them: under "TYPE:KEY" and "TYPE:POS:KEY".
struct Plain {
    QMap<QString, Values> types;
    QMap<QString, QVector<Values>> items;

    QMap<QString, QVariant> addresses() const
    {
        QMap<QString, QVariant> all;
        const auto add = [&all](const QString& begin, const Values& values) {
            for (auto it = values.cbegin(); it != values.cend(); ++it)
                all.insert(begin + it.key(), it.value());
        };
        for (auto it = types.cbegin(); it != types.cend(); ++it)
            add(it.key() + QLatin1Char(':'), it.value());
        for (auto it = items.cbegin(); it != items.cend(); ++it) {
            for (int pos = 0; pos < it.value().size(); ++pos)
                add(QStringLiteral("%1:%2:").arg(it.key()).arg(pos), it.value().at(pos));
        }
        return all;
    }
};

Plain plainOf(const FileSettings& file)
{
    Plain plain;
    for (const QString& type : zokit::effectTypes())
        plain.types.insert(type, file.values(file.type(type)));
    plain.types.insert(QStringLiteral("Output"), file.values(file.output()));
    plain.types.insert(QStringLiteral("Tracks"), file.values(file.tracks()));
    for (const QString& type : lists) {
        for (const Identity item : file.items(type))
            plain.items[type].append(file.values(item));
    }
    return plain;
}

void compare(const Plain& is, const Plain& wanted)
{
    const QMap<QString, QVariant> left = is.addresses();
    const QMap<QString, QVariant> right = wanted.addresses();
    QCOMPARE(left.keys(), right.keys());
    for (auto it = right.cbegin(); it != right.cend(); ++it) {
        const QVariant value = left.value(it.key());
        if (value != it.value() || value.userType() != it.value().userType())
            QFAIL(
                qPrintable(it.key() + QLatin1Char(' ') + value.toString() + QLatin1Char(' ') + it.value().toString()));
    }
}

/// What is given to a new item of \a type, and the value that a person would change most, with its bounds.
Values contentOf(const QString& type)
{
    if (type == lists.at(0))
        return {{key("wm_textcontent"), QStringLiteral("x")}, {key("wm_hposition"), 7}, {key("wm_vposition"), 9}};
    return {{key("trackid"), 3}};
}

/// A session: the settings, what they have to be, and what their signals told.
class Session {
public:
    explicit Session(quint32 seed) : m_random(seed), m_file(clip()), m_plain(plainOf(m_file))
    {
        for (const QString& type : lists) {
            FileSettings other(clip());
            const Identity item = other.insert(type, contentOf(type)).item;
            m_fresh.insert(type, other.values(item));
        }
        m_told = m_file.everything();
        QObject::connect(&m_file, &FileSettings::changed, &m_file, [this](const zokit::Changes& changes) {
            for (const Change& change : changes)
                take(change);
        });
    }

    void step()
    {
        const QString type = lists.at(m_random.bounded(3));
        switch (m_random.bounded(8)) {
        case 0:
            setOfType();
            break;
        case 1:
            setOfItem(type);
            break;
        case 2:
            insert(type);
            break;
        case 3:
            remove(type);
            break;
        case 4:
            move(type);
            break;
        case 5:
            select(type);
            break;
        case 6:
            reset(type);
            break;
        default:
            trim();
            break;
        }
        if (QTest::currentTestFailed())
            return;
        compare(plainOf(m_file), m_plain);
        QCOMPARE(m_told, m_file.everything());
        QVERIFY2(m_trouble.isEmpty(), qPrintable(m_trouble));
    }

private:
    void take(const Change& change)
    {
        Values& values = m_told[change.thing];
        if (values.value(change.key) != change.before)
            m_trouble = change.key + QStringLiteral(": told as before is what it was not");
        if (change.after.isValid())
            values.insert(change.key, change.after);
        else
            values.remove(change.key);
        if (values.isEmpty())
            m_told.remove(change.thing);
    }

    int anyPosition(const QString& type) { return m_random.bounded(-1, int(m_plain.items[type].size()) + 1); }

    void setOfType()
    {
        const QString color = QStringLiteral("Color");
        const QString name =
            QStringList{key("bcs_brightness"), key("bcs_contrast"), key("bcs_saturation"), key("bcs_hue")}.at(
                m_random.bounded(4));
        const int value = m_random.bounded(-52, 53);
        const zokit::Message answer = m_file.setValue(m_file.type(color), name, QString::number(value));
        const Code wanted = name == key("bcs_hue")      ? Code::UnknownKey
                            : value < -50 || value > 50 ? Code::OutOfBounds
                                                        : Code::None;
        QCOMPARE(answer.code(), wanted);
        Values& values = m_plain.types[color];
        if (wanted != Code::None || values.value(name) == QVariant(value))
            return;
        values.insert(name, value);
        values.insert(selected, true);
    }

    void setOfItem(const QString& type)
    {
        const int pos = anyPosition(type);
        QVector<Values>& items = m_plain.items[type];
        const bool exists = pos >= 0 && pos < items.size();
        const QString name = type == lists.at(0) ? key("wm_transparency") : key("trackid");
        const int value = m_random.bounded(-2, 103);
        const bool isAllowed = value >= 0 && (value <= 100 || name == key("trackid"));
        const zokit::Message answer = m_file.setValue(m_file.item(type, pos), name, value);
        QCOMPARE(answer.isEmpty(), exists && isAllowed);
        if (!exists || !isAllowed || items.at(pos).value(name) == QVariant(value))
            return;
        items[pos].insert(name, value);
        items[pos].insert(selected, true);
        m_plain.types[type].insert(selected, true);
    }

    void insert(const QString& type)
    {
        QVector<Values>& items = m_plain.items[type];
        const auto count = static_cast<int>(items.size());
        const int pos = m_random.bounded(-2, count + 2);
        const FileSettings::Inserted inserted = m_file.insert(type, contentOf(type), pos);
        const bool isAllowed = pos >= -1 && pos <= count;
        QCOMPARE(inserted.item != 0, isAllowed);
        QCOMPARE(inserted.error.code(), isAllowed ? Code::None : Code::ItemPosition);
        if (!isAllowed)
            return;
        items.insert(pos < 0 ? count : pos, m_fresh.value(type));
        m_plain.types[type].insert(selected, true);
    }

    void remove(const QString& type)
    {
        const int pos = anyPosition(type);
        QVector<Values>& items = m_plain.items[type];
        const bool exists = pos >= 0 && pos < items.size();
        QCOMPARE(m_file.remove(m_file.item(type, pos)).code(), exists ? Code::None : Code::NoSuchThing);
        if (exists)
            items.removeAt(pos);
    }

    void move(const QString& type)
    {
        const int from = anyPosition(type);
        const int to = anyPosition(type);
        QVector<Values>& items = m_plain.items[type];
        const auto exists = [&items](int pos) { return pos >= 0 && pos < items.size(); };
        const Identity item = m_file.item(type, from);
        const Code wanted = !exists(from) ? Code::NoSuchThing : !exists(to) ? Code::ItemPosition : Code::None;
        QCOMPARE(m_file.move(item, to).code(), wanted);
        if (wanted != Code::None)
            return;
        items.move(from, to);
        QCOMPARE(m_file.item(type, to), item);
    }

    void select(const QString& type)
    {
        const int pos = anyPosition(type);
        const bool on = m_random.bounded(2) == 1;
        QVector<Values>& items = m_plain.items[type];
        const bool isItem = pos >= 0 && pos < items.size();
        QVERIFY(m_file.setValue(isItem ? m_file.item(type, pos) : m_file.type(type), selected, on).isEmpty());
        (isItem ? items[pos] : m_plain.types[type]).insert(selected, on);
    }

    void reset(const QString& type)
    {
        const int pos = anyPosition(type);
        QVector<Values>& items = m_plain.items[type];
        if (type == lists.at(0) && pos >= 0 && pos < items.size()) {
            QVERIFY(m_file.reset(m_file.item(type, pos), key("wm_transparency")).isEmpty());
            items[pos].insert(key("wm_transparency"), m_fresh.value(type).value(key("wm_transparency")));
        } else {
            QVERIFY(m_file.reset(m_file.type(key("Color")), key("bcs_contrast")).isEmpty());
            m_plain.types[key("Color")].insert(key("bcs_contrast"), 0);
            QVERIFY(m_file.reset(m_file.output(), key("trim")).isEmpty());
            m_plain.types[key("Output")].remove(key("trim"));
        }
    }

    void trim()
    {
        const QVariantList range{m_random.bounded(4) / 2.0, m_random.bounded(4) / 2.0};
        const bool isAllowed = range.at(0).toDouble() < range.at(1).toDouble();
        QCOMPARE(m_file.setValue(m_file.output(), key("trim"), range).code(), isAllowed ? Code::None : Code::NotARange);
        if (isAllowed)
            m_plain.types[key("Output")].insert(key("trim"), range);
    }

    QRandomGenerator m_random;
    FileSettings m_file;
    Plain m_plain;
    QMap<QString, Values> m_fresh; ///< A new item of each type, in a file of its own.
    QMap<Identity, Values> m_told;
    QString m_trouble;
};

} // namespace

void TestKitRandomSettings::everyStepDoesWhatAPlainMapDoes()
{
    constexpr int sessionSteps = 100;
    clearSavedDefaults();
    const auto seed = quint32(stepsOr("ZOKIT_SEED", 20261122));
    const int total = stepsOr("ZOKIT_STEPS", 10000);
    for (int done = 0; done < total; done += sessionSteps) {
        const quint32 ofSession = seed + quint32(done);
        Session session(ofSession);
        for (int i = 0; i < sessionSteps; ++i) {
            session.step();
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("seed %1, step %2").arg(ofSession).arg(i)));
        }
    }
}

ZOEFFECT_TEST_MAIN(TestKitRandomSettings)
#include "tst_kit_randomsettings.moc"
