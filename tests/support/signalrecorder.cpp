// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "signalrecorder.h"

#include <QColor>
#include <QFont>

#include <zoeffectmodel.h>

QString described(const QMap<QString, QVariant>& properties)
{
    QStringList entries;
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        entries << it.key() + QStringLiteral(": ") + described(it.value());
    return QLatin1Char('{') + entries.join(QStringLiteral(", ")) + QLatin1Char('}');
}

QString described(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return QStringLiteral("invalid");
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("bool true") : QStringLiteral("bool false");
    case QMetaType::Double:
        return QStringLiteral("double ") + QString::number(value.toDouble(), 'g', 17);
    case QMetaType::QString:
        return QStringLiteral("string ") + value.toString();
    case QMetaType::QColor:
        return QStringLiteral("color ") + value.value<QColor>().name(QColor::HexArgb);
    case QMetaType::QFont:
        return QStringLiteral("font ") + value.value<QFont>().family();
    case QMetaType::QVariantMap:
        return QStringLiteral("map ") + described(value.toMap());
    default:
        return QString::fromLatin1(value.typeName()) + QLatin1Char(' ') + value.toString();
    }
}

SignalRecorder::SignalRecorder(const ZoEffectModel& model)
{
    const auto record = [this](const QString& name, const QStringList& arguments) {
        m_signals << name + QLatin1Char('(') + arguments.join(QStringLiteral(", ")) + QLatin1Char(')');
    };
    const auto text = [](int number) { return QString::number(number); };

    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, [=](const QString& type, const QString& key, const QVariant& val, int pos) {
                record(QStringLiteral("effectDataChanged"), {type, key, described(val), text(pos)});
            });
    connect(&model, QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged), this,
            [=](const QString& type) { record(QStringLiteral("effectDataChanged"), {type}); });
    connect(&model, &ZoEffectModel::currentItemChanged, this,
            [=](const QString& type) { record(QStringLiteral("currentItemChanged"), {type}); });
    connect(&model, &ZoEffectModel::currentSubItemChanged, this, [=](const QString& type, int index) {
        record(QStringLiteral("currentSubItemChanged"), {type, text(index)});
    });
    connect(&model, &ZoEffectModel::applyItemDataTo, this,
            [=](ZoEffectItemData* item, const QString& type, int pos, int applyto) {
                record(QStringLiteral("applyItemDataTo"),
                       {QStringLiteral("node ") + item->name(), type, text(pos), text(applyto)});
            });
    connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this,
            [=](const QMap<QString, QVariant>& props, const QString& type, int pos, int appto) {
                record(QStringLiteral("applyItemDataSomePropertyTo"), {described(props), type, text(pos), text(appto)});
            });
    connect(&model, &ZoEffectModel::effectDataAboutChange, this,
            [=](const QString& type) { record(QStringLiteral("effectDataAboutChange"), {type}); });
}

QStringList SignalRecorder::take()
{
    QStringList taken;
    taken.swap(m_signals);
    return taken;
}
