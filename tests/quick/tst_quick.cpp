// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The QML types and the gallery's panel, by the tst_*.qml in this folder. They run in a folder with sample clips:
// lossless.mkv (160x120, 0.4 s, with sound), red709.mkv (64x48, all red, 0.2 s), sound.wav.

#include <QDir>
#include <QFileInfo>
#include <QQmlEngine>
#include <QtQuickTest>

#include "clips.h"
#include "testapplication.h"

class QuickSetup : public QObject {
    Q_OBJECT

public:
    QuickSetup()
    {
        qputenv("QT_QUICK_BACKEND", "software");
        qputenv("QT_QUICK_CONTROLS_STYLE", "Fusion");
    }

public slots:
    void applicationAvailable()
    {
        QDir::setCurrent(m_folders.temporary());
        for (const char* name : {"lossless.mkv", "red709.mkv", "sound.wav"})
            QFile::link(clips::clip(QString::fromLatin1(name)), QString::fromLatin1(name));
    }

    void qmlEngineAvailable(QQmlEngine* engine)
    {
        engine->addImportPath(QStringLiteral(QUICK_IMPORT_FOLDER));
        engine->addImportPath(QStringLiteral(QUICK_EXAMPLES_FOLDER));
    }

private:
    TestFolders m_folders;
};

QUICK_TEST_MAIN_WITH_SETUP(quick, QuickSetup)

#include "tst_quick.moc"
