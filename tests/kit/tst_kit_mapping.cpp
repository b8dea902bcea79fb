// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QtTest>

#include <zokit/mapping.h>
#include <zokit/properties.h>

class TestKitMapping : public QObject {
    Q_OBJECT

private slots:
    void everyPropertyHasItsRow();
    void everyRowHasItsTest();
    void pageSaysWhatTheTableSays();
};

void TestKitMapping::everyPropertyHasItsRow()
{
    QStringList mapped;
    int inTheCatalogue = 0;
    for (const zokit::Mapping& row : zokit::mappings()) {
        mapped.append(QString::fromLatin1(row.type) + QLatin1Char(':') + QString::fromLatin1(row.key));
        QVERIFY2(qstrlen(row.how) > 5, row.key);
        const zokit::Property* property =
            zokit::findProperty(QString::fromLatin1(row.type), QString::fromLatin1(row.key));
        QVERIFY2(property, row.key);
        inTheCatalogue += property->hasDefault() ? 1 : 0;
    }
    QStringList known;
    for (const zokit::Property& property : zokit::properties()) {
        if (zokit::effectTypes().contains(property.type))
            known.append(property.type + QLatin1Char(':') + property.key);
    }
    QCOMPARE(mapped, known);
    QCOMPARE(inTheCatalogue, 65);
}

void TestKitMapping::everyRowHasItsTest()
{
    for (const zokit::Mapping& row : zokit::mappings()) {
        const QStringList test = QString::fromLatin1(row.test).split(QStringLiteral("::"));
        QVERIFY2(test.first().isEmpty() != row.mapped, row.key);
        if (!row.mapped)
            continue;
        QFile source(QStringLiteral(ZOKIT_TESTS "/%1.cpp").arg(test.first()));
        QVERIFY2(source.open(QIODevice::ReadOnly), row.test);
        const QByteArray slot = "    void " + test.last().toLatin1() + "();\n";
        QVERIFY2(source.readAll().contains(slot), row.test);
    }
}

void TestKitMapping::pageSaysWhatTheTableSays()
{
    // After a change: ZOKIT_WRITE_MAPPING=1 has this test write the page.
    QFile page(QStringLiteral(ZOKIT_PAGES "/mapping.md"));
    if (qEnvironmentVariableIsSet("ZOKIT_WRITE_MAPPING")) {
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.write(zokit::mappingPage());
        page.close();
    }
    QVERIFY(page.open(QIODevice::ReadOnly));
    QCOMPARE(page.readAll(), zokit::mappingPage());
}

QTEST_GUILESS_MAIN(TestKitMapping)
#include "tst_kit_mapping.moc"
