// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a host that connects by text, or walks the meta-object, relies on.
// clazy:excludeall=connect-not-normalized clang-format sets blanks in the signatures.

#include <QMetaMethod>
#include <QtTest>

#include <zoeffectitemdata.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "signalrecorder.h"
#include "testapplication.h"

/// Receives the signals through connections made by text.
class TextReceiver : public QObject {
    Q_OBJECT

public:
    QStringList received;

public slots:
    void onValue(const QString& type, const QString& key, const QVariant& val, int pos)
    {
        received << QStringLiteral("value %1 %2 %3 %4").arg(type, key, described(val), QString::number(pos));
    }
    void onType(const QString& type) { received << QStringLiteral("type ") + type; }
    void onSubItem(const QString& type, int index)
    {
        received << QStringLiteral("sub-item %1 %2").arg(type, QString::number(index));
    }
    void onItem(ZoEffectItemData* const item, const QString& type, int pos, int applyto)
    {
        received << QStringLiteral("item %1 %2 %3 %4")
                        .arg(item->name(), type, QString::number(pos), QString::number(applyto));
    }
    void onProperties(const QMap<QString, QVariant>& props, const QString& type, int pos, int appto)
    {
        received << QStringLiteral("properties %1 %2 %3 %4")
                        .arg(described(props), type, QString::number(pos), QString::number(appto));
    }
    void onAnything() { received << QStringLiteral("anything"); }
};

class TstMetaObject : public QObject {
    Q_OBJECT

private slots:
    void init();

    void modelIsNamedAndDerivedFromQObject();
    void modelHasSevenMethodsAndNothingElse();
    void signalStandsAtItsIndex_data();
    void signalStandsAtItsIndex();
    void signalIsFoundBySpelling_data();
    void signalIsFoundBySpelling();
    void modelCasts_data();
    void modelCasts();
    void modelIsFoundByCast();

    void connectsByText_data();
    void connectsByText();
    void connectsItemSignalByTextWithBlanks();
    void connectsItemSignalToFewerArguments();
    void connectsSignalToSignalByText();

    void nodeIsNamedAndDerivedFromQObject();
    void nodeAddsNothing();
    void nodeCasts_data();
    void nodeCasts();
};

void TstMetaObject::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
}

void TstMetaObject::modelIsNamedAndDerivedFromQObject()
{
    const ZoEffectModel model;
    QCOMPARE(model.metaObject(), &ZoEffectModel::staticMetaObject);
    QCOMPARE(QString::fromLatin1(model.metaObject()->className()), QStringLiteral("ZoEffectModel"));
    QCOMPARE(model.metaObject()->superClass(), &QObject::staticMetaObject);
}

void TstMetaObject::modelHasSevenMethodsAndNothingElse()
{
    const QMetaObject& meta = ZoEffectModel::staticMetaObject;

    QCOMPARE(meta.methodCount() - meta.methodOffset(), 7);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
    QCOMPARE(meta.classInfoCount() - meta.classInfoOffset(), 0);
    QCOMPARE(meta.constructorCount(), 0);
}

void TstMetaObject::signalStandsAtItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QList<QByteArray>>("types");
    QTest::addColumn<QList<QByteArray>>("names");

    using Words = QList<QByteArray>;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QByteArray node = "ZoEffectItemData*const";
#else
    const QByteArray node = "ZoEffectItemData*"; // This moc drops what is const by value.
#endif
    QTest::newRow("change of a value") << 0 << QByteArray("effectDataChanged")
                                       << Words{"QString", "QString", "QVariant", "int"}
                                       << Words{"type", "key", "val", "pos"};
    QTest::newRow("current item") << 1 << QByteArray("currentItemChanged") << Words{"QString"} << Words{"newtype"};
    QTest::newRow("current sub-item") << 2 << QByteArray("currentSubItemChanged") << Words{"QString", "int"}
                                      << Words{"newType", "index"};
    QTest::newRow("item to apply") << 3 << QByteArray("applyItemDataTo") << Words{node, "QString", "int", "int"}
                                   << Words{"item", "type", "pos", "applyto"};
    // The name that Qt gives to QMap<QString,QVariant> wherever it is asked for it.
    QTest::newRow("properties to apply") << 4 << QByteArray("applyItemDataSomePropertyTo")
                                         << Words{"QVariantMap", "QString", "int", "int"}
                                         << Words{"props", "type", "pos", "appto"};
    QTest::newRow("beginning of a change")
        << 5 << QByteArray("effectDataAboutChange") << Words{"QString"} << Words{"type"};
    QTest::newRow("end of a change") << 6 << QByteArray("effectDataChanged") << Words{"QString"} << Words{"type"};
}

void TstMetaObject::signalStandsAtItsIndex()
{
    QFETCH(int, index);
    QFETCH(QByteArray, name);
    QFETCH(QList<QByteArray>, types);
    QFETCH(QList<QByteArray>, names);
    const QMetaObject& meta = ZoEffectModel::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + index);

    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(method.access(), QMetaMethod::Public);
    QCOMPARE(method.name(), name);
    QCOMPARE(method.parameterTypes(), types);
    QCOMPARE(method.parameterNames(), names);
    QCOMPARE(method.methodSignature(), QByteArray(name + '(' + types.join(',') + ')'));
    QCOMPARE(method.returnType(), static_cast<int>(QMetaType::Void));
    QCOMPARE(QByteArray(method.tag()), QByteArray());
}

void TstMetaObject::signalIsFoundBySpelling_data()
{
    QTest::addColumn<QByteArray>("spelling");
    QTest::addColumn<int>("index"); // -1 for none.

    QTest::newRow("change of a value") << QByteArray("effectDataChanged(QString,QString,QVariant,int)") << 0;
    QTest::newRow("current item") << QByteArray("currentItemChanged(QString)") << 1;
    QTest::newRow("current sub-item") << QByteArray("currentSubItemChanged(QString,int)") << 2;
    QTest::newRow("item to apply") << QByteArray("applyItemDataTo(ZoEffectItemData*const,QString,int,int)") << 3;
    QTest::newRow("properties to apply") << QByteArray(
        "applyItemDataSomePropertyTo(QMap<QString,QVariant>,QString,int,int)")
                                         << 4;
    QTest::newRow("beginning of a change") << QByteArray("effectDataAboutChange(QString)") << 5;
    QTest::newRow("end of a change") << QByteArray("effectDataChanged(QString)") << 6;
    QTest::newRow("references and blanks")
        << QByteArray("effectDataChanged( const QString &, const QString&, const QVariant &, int )") << 0;
    QTest::newRow("no such arguments") << QByteArray("effectDataChanged(QString,QString)") << -1;
    QTest::newRow("no such signal") << QByteArray("itemChanged(QString)") << -1;
    QTest::newRow("operation") << QByteArray("setCurrentItem(QString)") << -1;
}

void TstMetaObject::signalIsFoundBySpelling()
{
    QFETCH(QByteArray, spelling);
    QFETCH(int, index);
    const QMetaObject& meta = ZoEffectModel::staticMetaObject;
    const QByteArray normal = QMetaObject::normalizedSignature(spelling.constData());

    const int found = meta.indexOfSignal(normal.constData());

    QCOMPARE(found < 0 ? -1 : found - meta.methodOffset(), index);
    QCOMPARE(meta.indexOfSlot(normal.constData()), -1);
}

void TstMetaObject::modelCasts_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("itself");

    QTest::newRow("own name") << QByteArray("ZoEffectModel") << true;
    QTest::newRow("base class") << QByteArray("QObject") << true;
    QTest::newRow("node") << QByteArray("ZoEffectItemData") << false;
    QTest::newRow("other case") << QByteArray("zoeffectmodel") << false;
    QTest::newRow("blank after") << QByteArray("ZoEffectModel ") << false;
    QTest::newRow("other class") << QByteArray("QTimer") << false;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("null") << QByteArray() << false;
}

void TstMetaObject::modelCasts()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, itself);
    ZoEffectModel model;

    void* const cast = model.qt_metacast(name.isNull() ? nullptr : name.constData());

    QCOMPARE(cast, itself ? static_cast<void*>(&model) : nullptr);
    QVERIFY(name.isNull() || model.inherits(name.constData()) == itself);
}

void TstMetaObject::modelIsFoundByCast()
{
    QObject parent;
    auto* model = new ZoEffectModel(&parent);
    QObject* object = model;
    QObject other;

    QCOMPARE(qobject_cast<ZoEffectModel*>(object), model);
    QVERIFY(!qobject_cast<ZoEffectModel*>(&other));
    QVERIFY(!qobject_cast<ZoEffectItemData*>(object));
    QCOMPARE(parent.findChild<ZoEffectModel*>(), model);
}

void TstMetaObject::connectsByText_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("received");

    QTest::newRow("change of a value") << QByteArray(SIGNAL(effectDataChanged(QString, QString, QVariant, int)))
                                       << QByteArray(SLOT(onValue(QString, QString, QVariant, int)))
                                       << QStringList{"value Crop crop_left int 10 -1"};
    QTest::newRow("current item") << QByteArray(SIGNAL(currentItemChanged(QString)))
                                  << QByteArray(SLOT(onType(QString))) << QStringList{"type current"};
    QTest::newRow("current sub-item") << QByteArray(SIGNAL(currentSubItemChanged(QString, int)))
                                      << QByteArray(SLOT(onSubItem(QString, int))) << QStringList{"sub-item sub 4"};
    QTest::newRow("item to apply") << QByteArray(SIGNAL(applyItemDataTo(ZoEffectItemData* const, QString, int, int)))
                                   << QByteArray(SLOT(onItem(ZoEffectItemData* const, QString, int, int)))
                                   << QStringList{"item Color Color -1 7"};
    QTest::newRow("properties to apply") << QByteArray(
        SIGNAL(applyItemDataSomePropertyTo(QMap<QString, QVariant>, QString, int, int)))
                                         << QByteArray(SLOT(onProperties(QMap<QString, QVariant>, QString, int, int)))
                                         << QStringList{"properties {a: int 1} given 2 3"};
    QTest::newRow("beginning of a change") << QByteArray(SIGNAL(effectDataAboutChange(QString)))
                                           << QByteArray(SLOT(onType(QString))) << QStringList{"type begin"};
    QTest::newRow("end of a change") << QByteArray(SIGNAL(effectDataChanged(QString)))
                                     << QByteArray(SLOT(onType(QString))) << QStringList{"type end"};
}

void TstMetaObject::connectsByText()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, received);
    ZoEffectModel model;
    TextReceiver receiver;

    QVERIFY(connect(&model, signal.constData(), &receiver, slot.constData()));

    model.setData("crop_left", 10, "Crop", -1);
    model.setCurrentItem("current");
    model.setCurrentSubItem("sub", 4);
    model.applyDataTo("Color", -1, 7);
    emit model.applyItemDataSomePropertyTo({{"a", 1}}, "given", 2, 3);
    model.beginChange("begin");
    model.endChanged("end");
    QCOMPARE(receiver.received, received);

    QVERIFY(disconnect(&model, signal.constData(), &receiver, slot.constData()));
    model.setCurrentItem("again");
    model.applyDataTo("Color", -1, 8);
    QCOMPARE(receiver.received, received);
}

void TstMetaObject::connectsItemSignalByTextWithBlanks()
{
    ZoEffectModel model;
    TextReceiver receiver;

    QVERIFY(connect(&model, "2applyItemDataTo( ZoEffectItemData * const , const QString & , int , int )", &receiver,
                    "1onItem( ZoEffectItemData * const , const QString & , int , int )"));

    model.applyDataTo("Color", -1, 7);
    QCOMPARE(receiver.received, QStringList{"item Color Color -1 7"});
}

void TstMetaObject::connectsItemSignalToFewerArguments()
{
    ZoEffectModel model;
    TextReceiver receiver;

    QVERIFY(connect(&model, SIGNAL(applyItemDataTo(ZoEffectItemData* const, QString, int, int)), &receiver,
                    SLOT(onAnything())));

    model.applyDataTo("Color", -1, 7);
    model.applyDataTo("Unknown", -1, 7);
    QCOMPARE(receiver.received, QStringList{"anything"});
}

void TstMetaObject::connectsSignalToSignalByText()
{
    ZoEffectModel model;
    ZoEffectModel other;
    SignalRecorder recorded(other);

    QVERIFY(connect(&model, SIGNAL(applyItemDataTo(ZoEffectItemData* const, QString, int, int)), &other,
                    SIGNAL(applyItemDataTo(ZoEffectItemData* const, QString, int, int))));
    QVERIFY(connect(&model, SIGNAL(effectDataChanged(QString, QString, QVariant, int)), &other,
                    SIGNAL(effectDataChanged(QString))));

    model.applyDataTo("Color", -1, 7);
    model.setData("crop_left", 10, "Crop", -1);

    QCOMPARE(recorded.take(), QStringList({"applyItemDataTo(node Color, Color, -1, 7)", "effectDataChanged(Crop)"}));
}

void TstMetaObject::nodeIsNamedAndDerivedFromQObject()
{
    const ZoEffectItemData node(QStringLiteral("node"));
    QCOMPARE(node.metaObject(), &ZoEffectItemData::staticMetaObject);
    QCOMPARE(QString::fromLatin1(node.metaObject()->className()), QStringLiteral("ZoEffectItemData"));
    QCOMPARE(node.metaObject()->superClass(), &QObject::staticMetaObject);
}

void TstMetaObject::nodeAddsNothing()
{
    const QMetaObject& meta = ZoEffectItemData::staticMetaObject;

    QCOMPARE(meta.methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta.propertyCount(), QObject::staticMetaObject.propertyCount());
    QCOMPARE(meta.enumeratorCount(), QObject::staticMetaObject.enumeratorCount());
    QCOMPARE(meta.classInfoCount(), QObject::staticMetaObject.classInfoCount());
    QCOMPARE(meta.constructorCount(), 0);
}

void TstMetaObject::nodeCasts_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("itself");

    QTest::newRow("own name") << QByteArray("ZoEffectItemData") << true;
    QTest::newRow("base class") << QByteArray("QObject") << true;
    QTest::newRow("model") << QByteArray("ZoEffectModel") << false;
    QTest::newRow("other case") << QByteArray("zoeffectitemdata") << false;
    QTest::newRow("pointer") << QByteArray("ZoEffectItemData*") << false;
    QTest::newRow("null") << QByteArray() << false;
}

void TstMetaObject::nodeCasts()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, itself);
    ZoEffectItemData node(QStringLiteral("node"));

    void* const cast = node.qt_metacast(name.isNull() ? nullptr : name.constData());

    QCOMPARE(cast, itself ? static_cast<void*>(&node) : nullptr);
    QVERIFY(name.isNull() || node.inherits(name.constData()) == itself);
}

ZOEFFECT_TEST_MAIN(TstMetaObject)
#include "tst_metaobject.moc"
