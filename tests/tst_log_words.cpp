// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The events of the log in words: messages of the logging category "zoeffect" at debug level.

#include <QLoggingCategory>
#include <QtTest>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "testapplication.h"

namespace {

QStringList messages;

void keepMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    messages << QStringLiteral("%1 %2 %3").arg(type).arg(QLatin1String(context.category), text);
}

/// The messages while \a run runs under the host's filter \a rules.
template <typename Run>
QStringList messagesOf(const QString& rules, Run run)
{
    messages.clear();
    QLoggingCategory::setFilterRules(rules);
    const QtMessageHandler before = qInstallMessageHandler(keepMessage);
    run();
    qInstallMessageHandler(before);
    QLoggingCategory::setFilterRules(QString());
    return messages;
}

void failThreeTimes()
{
    ZoEffectModel model(QStringList{QStringLiteral("Crop")});
    model.setData("wm_fontsize", 30, "Watermark", 0);
    model.childCount("%n %s");
    model.getImage("/nowhere/%s.png", nullptr);
}

const QList<int> threeEvents{181, 246, 1178};

} // namespace

class TstLogWords : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void nothingIsSaidByItself();
    void eachEventIsSaidAtDebugLevel();
};

void TstLogWords::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    logcapture::takeEvents();
}

void TstLogWords::nothingIsSaidByItself()
{
    for (const char* rules : {"", "zoeffect.info=true", "other.debug=true"}) {
        QCOMPARE(messagesOf(rules, failThreeTimes), QStringList());
        QCOMPARE(logcapture::takeEvents(), threeEvents);
    }
}

void TstLogWords::eachEventIsSaidAtDebugLevel()
{
    const QStringList expected{
        "0 zoeffect 181: setData(): no node at this type and position; answers false",
        "0 zoeffect 246: childCount(): the model does not have this type; answers 0",
        "0 zoeffect 1178: the image cannot be loaded: getImage() answers a null pixmap, getWatermark() paints the "
        "others. Each attempt is logged",
    };
    QCOMPARE(messagesOf("zoeffect.debug=true", failThreeTimes), expected);
    QCOMPARE(logcapture::takeEvents(), threeEvents);
}

ZOEFFECT_TEST_MAIN(TstLogWords)

#include "tst_log_words.moc"
