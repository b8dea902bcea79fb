// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a host that connects by text, or walks the meta-object, relies on.
// clazy:excludeall=connect-not-normalized clang-format sets blanks in the signatures.

#include <QMetaMethod>

#include <zoeffectitemdata.h>

#include "modeltest.h"

/// Receives the signals through connections made by text.
class TextReceiver : public QObject {
    Q_OBJECT

public:
    QStringList received;

public slots:
    void onValue(const QString& type, const QString& key, const QVariant& val, int pos)
    {
        received << QString("value %1 %2 %3 %4").arg(type, key, described(val), QString::number(pos));
    }
    void onType(const QString& type) { received << "type " + type; }
    void onSubItem(const QString& type, int index) { received << QString("sub-item %1 %2").arg(type).arg(index); }
    void onItem(ZoEffectItemData* const item, const QString& type, int pos, int applyto)
    {
        received << QString("item %1 %2 %3 %4").arg(item->name(), type).arg(pos).arg(applyto);
    }
    void onProperties(const QMap<QString, QVariant>& props, const QString& type, int pos, int appto)
    {
        received << QString("properties %1 %2 %3 %4").arg(described(props), type).arg(pos).arg(appto);
    }
    void onAnything() { received << "anything"; }
};

class TstMetaObject : public ModelTest {
    Q_OBJECT

private slots:
    void classesAreNamedDerivedAndCast()
    {
        QObject parent;
        auto* model = new ZoEffectModel(&parent);
        ZoEffectItemData node("node");
        QObject* const object = model;
        QCOMPARE(model->metaObject(), &ZoEffectModel::staticMetaObject);
        QCOMPARE(node.metaObject(), &ZoEffectItemData::staticMetaObject);
        QCOMPARE(QString(model->metaObject()->className()), QString("ZoEffectModel"));
        QCOMPARE(QString(node.metaObject()->className()), QString("ZoEffectItemData"));
        QCOMPARE(model->metaObject()->superClass(), &QObject::staticMetaObject);
        QCOMPARE(node.metaObject()->superClass(), &QObject::staticMetaObject);
        QCOMPARE(qobject_cast<ZoEffectModel*>(object), model);
        QVERIFY(!qobject_cast<ZoEffectItemData*>(object));
        QVERIFY(!qobject_cast<ZoEffectModel*>(&parent));
        QCOMPARE(parent.findChild<ZoEffectModel*>(), model);
        for (const char* name : {"ZoEffectModel", "QObject", "ZoEffectItemData", "zoeffectmodel", "ZoEffectModel ",
                                 "ZoEffectItemData*", "QTimer", ""}) {
            const bool isBase = qstrcmp(name, "QObject") == 0;
            QCOMPARE(model->qt_metacast(name), isBase || qstrcmp(name, "ZoEffectModel") == 0 ? model : nullptr);
            QCOMPARE(node.qt_metacast(name), isBase || qstrcmp(name, "ZoEffectItemData") == 0 ? &node : nullptr);
        }
        QVERIFY(!model->qt_metacast(nullptr));
        QVERIFY(!node.qt_metacast(nullptr));
    }

    void modelHasSevenMethodsAndTheNodeNothing()
    {
        const QMetaObject& model = ZoEffectModel::staticMetaObject;
        QCOMPARE(model.methodCount() - model.methodOffset(), 7);
        QCOMPARE(ZoEffectItemData::staticMetaObject.methodCount(), QObject::staticMetaObject.methodCount());
        for (const QMetaObject* meta : {&model, &ZoEffectItemData::staticMetaObject}) {
            QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 0);
            QCOMPARE(meta->enumeratorCount() - meta->enumeratorOffset(), 0);
            QCOMPARE(meta->classInfoCount() - meta->classInfoOffset(), 0);
            QCOMPARE(meta->constructorCount(), 0);
        }
    }

    void signalStandsAtItsIndex_data()
    {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        const QByteArray node = "ZoEffectItemData*const";
#else
        const QByteArray node = "ZoEffectItemData*"; // This moc drops what is const by value.
#endif
        // The last column is how a host writes it. QVariantMap is Qt's name for QMap<QString,QVariant> if asked for it.
        addRows<int, QByteArray, QByteArray, QByteArray>({
            {"change of a value", 0, "effectDataChanged(QString,QString,QVariant,int)", "type,key,val,pos",
             "effectDataChanged( const QString &, const QString&, const QVariant &, int )"},
            {"current item", 1, "currentItemChanged(QString)", "newtype", "currentItemChanged(QString)"},
            {"current sub-item", 2, "currentSubItemChanged(QString,int)", "newType,index",
             "currentSubItemChanged(QString,int)"},
            {"item to apply", 3, "applyItemDataTo(" + node + ",QString,int,int)", "item,type,pos,applyto",
             "applyItemDataTo(ZoEffectItemData*const,QString,int,int)"},
            {"properties to apply", 4, "applyItemDataSomePropertyTo(QVariantMap,QString,int,int)",
             "props,type,pos,appto", "applyItemDataSomePropertyTo(QMap<QString,QVariant>,QString,int,int)"},
            {"beginning of a change", 5, "effectDataAboutChange(QString)", "type", "effectDataAboutChange(QString)"},
            {"end of a change", 6, "effectDataChanged(QString)", "type", "effectDataChanged(QString)"},
        });
    }

    void signalStandsAtItsIndex()
    {
        const auto [index, signature, names, spelling] = row<int, QByteArray, QByteArray, QByteArray>();
        const QMetaObject& meta = ZoEffectModel::staticMetaObject;
        const QMetaMethod method = meta.method(meta.methodOffset() + index);
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        QCOMPARE(method.access(), QMetaMethod::Public);
        QCOMPARE(method.name() + '(' + method.parameterTypes().join(',') + ')', signature);
        QCOMPARE(method.parameterNames().join(','), names);
        QCOMPARE(method.methodSignature(), signature);
        QCOMPARE(method.returnType(), int(QMetaType::Void));
        QCOMPARE(QByteArray(method.tag()), QByteArray());

        const QByteArray normal = QMetaObject::normalizedSignature(spelling.constData());
        QCOMPARE(meta.indexOfSignal(normal.constData()) - meta.methodOffset(), index);
        QCOMPARE(meta.indexOfSlot(normal.constData()), -1);
        for (const char* other : {"effectDataChanged(QString,QString)", "setCurrentItem(QString)"})
            QCOMPARE(meta.indexOfMethod(other), -1);
    }

    void connectsByText_data()
    {
        addRows<QByteArray, QByteArray, QString>({
            {"change of a value", SIGNAL(effectDataChanged(QString, QString, QVariant, int)),
             SLOT(onValue(QString, QString, QVariant, int)), "value Crop crop_left int 10 -1"},
            {"current item", SIGNAL(currentItemChanged(QString)), SLOT(onType(QString)), "type current"},
            {"current sub-item", SIGNAL(currentSubItemChanged(QString, int)), SLOT(onSubItem(QString, int)),
             "sub-item sub 4"},
            {"item to apply", SIGNAL(applyItemDataTo(ZoEffectItemData* const, QString, int, int)),
             SLOT(onItem(ZoEffectItemData* const, QString, int, int)), "item Color Color -1 7"},
            {"item to apply, with blanks", "2applyItemDataTo( ZoEffectItemData * const , const QString & , int , int )",
             "1onItem( ZoEffectItemData * const , const QString & , int , int )", "item Color Color -1 7"},
            {"item to apply, to fewer arguments", SIGNAL(applyItemDataTo(ZoEffectItemData* const, QString, int, int)),
             SLOT(onAnything()), "anything"},
            {"properties to apply", SIGNAL(applyItemDataSomePropertyTo(QMap<QString, QVariant>, QString, int, int)),
             SLOT(onProperties(QMap<QString, QVariant>, QString, int, int)), "properties {a: int 1} given 2 3"},
            {"beginning of a change", SIGNAL(effectDataAboutChange(QString)), SLOT(onType(QString)), "type begin"},
            {"end of a change", SIGNAL(effectDataChanged(QString)), SLOT(onType(QString)), "type end"},
        });
    }

    void connectsByText()
    {
        const auto [signal, slot, received] = row<QByteArray, QByteArray, QString>();
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
        QCOMPARE(receiver.received, one(received));

        QVERIFY(disconnect(&model, signal.constData(), &receiver, slot.constData()));
        model.setCurrentItem("again");
        model.applyDataTo("Color", -1, 8);
        QCOMPARE(receiver.received, one(received));
    }

    void connectsSignalToSignalByText()
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
        QCOMPARE(recorded.take(),
                 QStringList({"applyItemDataTo(node Color, Color, -1, 7)", "effectDataChanged(Crop)"}));
    }
};

ZOEFFECT_TEST_MAIN(TstMetaObject)
#include "tst_metaobject.moc"
