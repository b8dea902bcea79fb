// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A host of its own process for faults that come from outside: strace, a disk that is really full. See usage below.

#include <cstdio>

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "faultworld.h"
#include "hostcatalogue.h"

using namespace faultworld;

namespace {

constexpr char usage[] =
    "usage: faulthost COMMAND, with XDG_CONFIG_HOME and TMPDIR of its own\n"
    "  put STATE         writes the file of a state\n"
    "  save, save-large  saves a custom default, over an old one if there is one\n"
    "  remove            removes a custom default\n"
    "  load              only starts\n"
    "  log               an operation that logs\n"
    "  check STATE...    ends 0 when the file is that of one of the states, and is read as that\n"
    "States: none first old new large removed. The operations end 0 when they have the right state in\n"
    "memory, and no call took longer than a quarter of a second.\n";

constexpr int largeText = 62000;
constexpr int longestShown = 2000;

ZoEffectItemDefaultValMgr& manager()
{
    return *ZoEffectItemDefaultValMgr::getInstance();
}

Saved largeWatermark()
{
    const QString text(largeText, 'x');
    return {{{"wm_fontstyle", text}},
            "            \"wm_fontstyle\": \"" + text.toLatin1() + "\"\n",
            "{wm_fontstyle: string " + text + "}"};
}

State stateNamed(const QString& name)
{
    if (name == "none")
        return {};
    if (name == "first")
        return {{"Watermark", newWatermark()}};
    if (name == "removed")
        return {{"Color", oldColor()}};
    return {{"Color", oldColor()},
            {"Watermark", name == "new"     ? newWatermark()
                          : name == "large" ? largeWatermark()
                                            : oldWatermark()}};
}

/// A system call by which a trace is cut into what belongs to the operation and what does not.
void mark(const char* path)
{
    static_cast<void>(::access(path, F_OK));
}

int check(const QStringList& states)
{
    const bool exists = QFileInfo::exists(storeFile());
    for (const QString& name : states) {
        const bool isThis = name == "none" ? !exists : contentOf(storeFile()) == fileOf(stateNamed(name));
        if (!isThis)
            continue;
        if (knownText() == textOf(stateNamed(name))) {
            std::printf("%s\n", qPrintable(name));
            return 0;
        }
        std::printf("%s, but it is read as: %s\n", qPrintable(name), qPrintable(knownText()));
        return 1;
    }
    std::printf("the file is neither: %s\n", contentOf(storeFile()).left(longestShown).constData());
    return 1;
}

/// Does the operation. True when the process then knows what it must know.
bool operated(const QString& operation, Report& report)
{
    if (operation == "log") {
        ZoEffectModel model;
        bool answer = true;
        mark("/zoeffect-fault-begin");
        timed(report, [&] { answer = model.setData("key", 1, "no such type", -1); });
        mark("/zoeffect-fault-end");
        return !answer && model.setData("crop_left", 7, "Crop", -1);
    }
    mark("/zoeffect-fault-begin");
    timed(report, [] { manager(); });
    const bool loaded = manager().hasCustomDefaultVal("Color");
    const Saved saved = operation == "save-large" ? largeWatermark() : newWatermark();
    if (operation == "remove")
        timed(report, [] { manager().removeCustomDefaultVal("Watermark"); });
    else if (operation != "load")
        timed(report, [&] { manager().saveAsCustomDefaultVal("Watermark", saved.values); });
    mark("/zoeffect-fault-end");
    if (operation == "remove")
        return !manager().hasCustomDefaultVal("Watermark");
    if (operation == "load") // All or nothing.
        return manager().hasCustomDefaultVal("Watermark") == loaded;
    return manager().getCustomDefaultVal("Watermark") == saved.values;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ZoEffectModel::InitEffectModel(hostCatalogue());
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString command = arguments.value(0);
    if (command == "put" && arguments.size() == 2)
        return QDir().mkpath(storeFolder()) && writeFile(storeFile(), fileOf(stateNamed(arguments.at(1)))) ? 0 : 1;
    if (command == "check")
        return check(arguments.mid(1));
    if (!QStringList({"save", "save-large", "remove", "load", "log"}).contains(command)) {
        std::fputs(usage, stderr);
        return 2;
    }
    Report report;
    const bool known = operated(command, report);
    std::printf("longest call %lld us\n", static_cast<long long>(report.longestCall));
    if (!known)
        std::puts("the process does not know what it must");
    if (report.longestCall > longestCall)
        std::puts("a call takes too long");
    return known && report.longestCall <= longestCall ? 0 : 1;
}
