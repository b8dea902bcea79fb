// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The words of the logged events.

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include "modelevents_p.h"

class TstModelEvents : public QObject {
    Q_OBJECT

private slots:
    void guideHasTheSameWords();
    void otherNumbersHaveNoWords();
};

void TstModelEvents::guideHasTheSameWords()
{
    QFile guide(QStringLiteral(ZOEFFECT_SOURCE_FOLDER "/docs/guide/11-log.md"));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    static const QRegularExpression row(QStringLiteral(R"(^\| (\d+) \| (.+?) \|)"));
    int rows = 0;
    while (!guide.atEnd()) {
        const QRegularExpressionMatch match = row.match(QString::fromUtf8(guide.readLine()));
        if (!match.hasMatch())
            continue;
        ++rows;
        QCOMPARE(QString::fromUtf8(modelevents::inWords(match.captured(1).toInt())),
                 match.captured(2).remove(QLatin1Char('`')));
    }
    QCOMPARE(rows, 25); // The test of the guide holds that these are all numbers, each once.
}

void TstModelEvents::otherNumbersHaveNoWords()
{
    for (const int number : {-1, 0, 24, 26, 2398, 2400})
        QVERIFY(!modelevents::inWords(number));
}

QTEST_GUILESS_MAIN(TstModelEvents)

#include "tst_modelevents.moc"
