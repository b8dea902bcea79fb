// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "randomedits.h"

#include <QColor>
#include <QDebug>
#include <QRandomGenerator>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include <zokit/history.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>

#include "kitsupport.h"

namespace kitsupport {

namespace {

using zokit::FileSettings;
using zokit::Identity;
using zokit::Project;

template <typename List>
auto any(const List& list, QRandomGenerator& random)
{
    return list.at(random.bounded(int(list.size())));
}

/// A value that may or may not suit \a property.
QVariant anyValue(const zokit::Property& property, QRandomGenerator& random)
{
    if (!property.choices.isEmpty())
        return any(property.choices, random).value;
    switch (property.kind) {
    case zokit::ValueKind::Bool:
        return random.bounded(2) == 1;
    case zokit::ValueKind::Integer:
        return random.bounded(-60, 400);
    case zokit::ValueKind::Number:
        return random.bounded(3.0);
    case zokit::ValueKind::Color:
        return QColor::fromRgba(random.generate());
    case zokit::ValueKind::Font:
        return random.bounded(2) == 1 ? QStringLiteral("DejaVu Sans") : QStringLiteral("DejaVu Serif");
    case zokit::ValueKind::List:
        return random.bounded(2) == 1 ? QStringLiteral("fra,eng") : QStringLiteral("deu");
    case zokit::ValueKind::Size:
        return QStringLiteral("640x%1").arg(random.bounded(1, 999));
    case zokit::ValueKind::Range:
        return QVariantList{random.bounded(5.0), 5 + random.bounded(5.0)};
    default:
        return QString::number(random.bounded(100));
    }
}

Identity anyThing(const FileSettings& file, QRandomGenerator& random, QString& type)
{
    type = any(zokit::effectTypes() + QStringList{QStringLiteral("Output"), QStringLiteral("Tracks")}, random);
    if (type == QLatin1String("Output"))
        return file.output();
    if (type == QLatin1String("Tracks"))
        return file.tracks();
    const QVector<Identity> items = file.items(type);
    return items.isEmpty() || random.bounded(8) == 0 ? file.type(type) : any(items, random);
}

void setAnything(FileSettings& file, QRandomGenerator& random)
{
    QString type;
    const Identity thing = anyThing(file, random, type);
    QVector<const zokit::Property*> candidates;
    for (const zokit::Property& property : zokit::properties()) {
        if (property.type == type)
            candidates.append(&property);
    }
    const zokit::Property* property = any(candidates, random);
    file.setValue(thing, property->key, anyValue(*property, random));
}

void insertAnything(FileSettings& file, QRandomGenerator& random)
{
    zokit::Values values;
    QString type = QStringLiteral("Watermark");
    switch (random.bounded(4)) {
    case 0:
        values.insert(key("wm_textcontent"), QString::number(random.bounded(1000)));
        if (random.bounded(3) == 0)
            values.insert(key("anchor"), QVariantMap{{key("corner"), QStringLiteral("bottom-right")}});
        break;
    case 1:
        values.insert(key("wm_imageurl"), logoPath(60, 40));
        break;
    case 2:
        type = QStringLiteral("Subtitle");
        values.insert(key("sub_fromfile"), true);
        values.insert(key("file"), QStringLiteral("/subtitles/%1.srt").arg(random.bounded(10)));
        break;
    default:
        type = QStringLiteral("Audio");
        values.insert(key("trackid"), random.bounded(5));
        break;
    }
    file.insert(type, values, random.bounded(-1, int(file.items(type).size()) + 1));
}

void editList(FileSettings& file, QRandomGenerator& random)
{
    const QString type = any(QStringList{QStringLiteral("Watermark"), QStringLiteral("Subtitle"),
                                         QStringLiteral("Audio"), QStringLiteral("Effect")},
                             random);
    const QVector<Identity> items = file.items(type);
    if (items.isEmpty())
        return;
    const Identity item = any(items, random);
    switch (random.bounded(3)) {
    case 0:
        file.remove(item);
        break;
    case 1:
        file.move(item, random.bounded(int(items.size())));
        break;
    default:
        file.resetItem(item);
        break;
    }
}

void editDirectly(FileSettings& file, QRandomGenerator& random)
{
    ZoEffectModel* model = file.pictureModel();
    switch (random.bounded(4)) {
    case 0:
        model->setData(key("bcs_contrast"), random.bounded(-50, 51), key("Color"), -1);
        break;
    case 1:
        model->addDataItem(key("Watermark"),
                           {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("direct")}});
        break;
    case 2:
        model->changeDataItemPos(key("Effect"), random.bounded(20), random.bounded(20));
        break;
    default:
        if (model->childCount(key("Watermark")) > 0)
            model->delDataItem(key("Watermark"), random.bounded(model->childCount(key("Watermark"))));
        break;
    }
}

} // namespace

void randomEdit(Project& project, QRandomGenerator& random)
{
    const QVector<FileSettings*> files = project.files();
    if (files.isEmpty()) {
        project.add(clip());
        return;
    }
    FileSettings& file = *any(files, random);
    switch (random.bounded(100)) { // Mostly a value, as people do.
    case 0:
        file.resetType(any(zokit::effectTypes(), random));
        break;
    case 1:
        file.resetAll();
        break;
    case 2:
        file.setMedia(
            {QStringLiteral("/clips/other.mkv"), QSize(random.bounded(2, 2000), random.bounded(2, 2000)), 3.5});
        break;
    case 3:
        project.saveDefault(
            any(QVector<Identity>{file.type(key("Color")), file.type(key("Effect")), file.type(key("Audio_Echo")),
                                  file.item(key("Watermark"), 0), file.item(key("Subtitle"), 0)},
                random));
        break;
    case 4:
        project.forgetDefault(any(zokit::effectTypes(), random));
        break;
    case 5:
        if (files.size() < 4)
            project.add(random.bounded(2) == 1 ? clip() : zokit::Media{QStringLiteral("/b.mp4"), QSize(640, 480), 1.0});
        break;
    case 6:
        if (files.size() > 1)
            project.remove(&file);
        break;
    case 7:
        project.apply(file.settings(), files, {{any(zokit::effectTypes(), random)}, random.bounded(2) == 1});
        break;
    case 8:
        project.history().beginGesture(zokit::Message());
        for (int i = random.bounded(6); i > 0; --i)
            setAnything(file, random);
        project.history().endGesture();
        break;
    case 9:
        project.history().undo();
        break;
    case 10:
        project.history().redo();
        break;
    case 11:
    case 12:
        editDirectly(file, random);
        break;
    case 13:
    case 14:
    case 15:
        insertAnything(file, random);
        break;
    case 16:
    case 17:
    case 18:
        editList(file, random);
        break;
    case 19:
        project.history().setSelection(file.items(key("Watermark")));
        break;
    case 20: {
        QString type;
        const Identity thing = anyThing(file, random, type);
        const zokit::Values values = file.values(thing);
        if (!values.isEmpty())
            file.reset(thing, any(values.keys(), random));
        break;
    }
    default:
        setAnything(file, random);
        break;
    }
}

QByteArray settingsOf(const Project& project)
{
    QByteArray text;
    for (const FileSettings* file : project.files())
        text += zokit::writeSettings(file->settings(), QString());
    return text;
}

QByteArray stateOf(const Project& project)
{
    QByteArray state = settingsOf(project);
    for (const QString& type : zokit::effectTypes()) {
        zokit::Settings saved;
        saved.effects.append({type, true, ZoEffectItemDefaultValMgr::getInstance()->getCustomDefaultVal(type), {}, {}});
        if (!saved.effects.first().values.isEmpty())
            state += zokit::writePreset(saved, QString());
    }
    return state;
}

} // namespace kitsupport
