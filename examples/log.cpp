// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What the library logs, read back. docs/guide/11-log.md tells about it.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextStream>

#include <writelog.h>
#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

namespace {

const EffectControlItem* effectTable()
{
    static EffectControlItem table[3] = {};
    table[0].name = "Watermark";
    table[0].properties = WatermarkDefaultVal;
    table[1].name = "Stabiliser"; // A type of this host alone.
    return table;
}

QString logPath()
{
    return QDir::tempPath() + '/' + QFileInfo(QCoreApplication::applicationFilePath()).fileName() + ".1.log";
}

// The numbers in the lines that were added since the last call.
QString newNumbers()
{
    static qint64 read = 0;
    QFile log(logPath());
    if (!log.open(QIODevice::ReadOnly) || !log.seek(read))
        return "none";
    static const QRegularExpression entry(R"(^zoeffectmodel\((\d+)\) : )");
    QStringList numbers;
    while (!log.atEnd()) {
        const QRegularExpressionMatch match = entry.match(QString::fromLocal8Bit(log.readLine()));
        if (match.hasMatch())
            numbers << match.captured(1);
    }
    read = log.pos();
    return numbers.isEmpty() ? "none" : numbers.join(' ');
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());
    ZoEffectModel settings;
    settings.setVideoSize(640, 360);
    out << "all well: " << newNumbers() << '\n';

    settings.setData("crop_left", 10, "Crop", -1);
    out << "setting a value of a type that the model lacks: " << newNumbers() << '\n';
    out << "reading it: " << (settings.data("crop_left", "Crop", -1).isValid() ? "valid" : "invalid") << ", "
        << newNumbers() << '\n';

    settings.childCount("Crop");
    settings.delDataItem("Watermark", 0);
    out << "counting and deleting what is not there: " << newNumbers() << '\n';

    settings.addDataItem("Watermark", {{"wm_imageurl", "/nowhere/logo.png"}, {"wm_imagewidth", 90}});
    settings.getWatermark(640, 360, true);
    settings.getWatermark(640, 360, true);
    out << "drawing a picture that is not there, twice: " << newNumbers() << '\n';

    settings.delDataItem("Watermark", 0);
    settings.hasRealEffect();
    out << "asking for effects: " << newNumbers() << '\n';

    settings.setCurrentItem("Crop");
    settings.addDataItem("Crop", {});
    settings.selectItemByKey("Crop", "id", 1);
    settings.applyDataTo("Crop", -1, 0);
    out << "failing without a word: " << newNumbers() << '\n';

    // A host may write lines of its own. The format is printf's: give texts as arguments, never as the format.
    WriteLog("%s: %d frames dropped", "host", 3);
    QFile log(logPath());
    if (log.open(QIODevice::ReadOnly)) {
        const QStringList lines = QString::fromLocal8Bit(log.readAll()).split('\n');
        out << "the last line: " << lines.at(lines.size() - 2) << '\n';
    }
    return 0;
}
