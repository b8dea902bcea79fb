// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "missingtools.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "session.h"

namespace zoeditor {

MissingTools::MissingTools(Session* session, QWidget* parent)
    : QWidget(parent), m_session(session), m_reason(new QLabel(this))
{
    setObjectName(QStringLiteral("missingTools"));
    m_reason->setObjectName(QStringLiteral("reason"));
    m_reason->setWordWrap(true);
    auto* line = new QLineEdit(QStringLiteral("sudo apt-get install ffmpeg"), this);
    line->setObjectName(QStringLiteral("installLine"));
    line->setReadOnly(true);
    line->setAccessibleName(tr("This line, in a terminal, installs it"));
    auto* what = new QLabel(line->accessibleName() + QLatin1Char(':'), this);
    what->setBuddy(line);
    auto* copy = new QPushButton(tr("Copy the line"), this);
    copy->setObjectName(QStringLiteral("copyLine"));
    auto* again = new QPushButton(tr("Look again"), this);
    again->setObjectName(QStringLiteral("lookAgain"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_reason);
    layout->addWidget(what);
    auto* row = new QHBoxLayout;
    row->addWidget(line, 1);
    row->addWidget(copy);
    row->addWidget(again);
    layout->addLayout(row);
    connect(copy, &QPushButton::clicked, this, [line] { QApplication::clipboard()->setText(line->text()); });
    connect(again, &QPushButton::clicked, this, [this] {
        m_session->findTools();
        update();
    });
    update();
}

void MissingTools::update()
{
    m_reason->setText(m_session->tools().error.text());
    setVisible(!m_session->tools().error.isEmpty());
}

} // namespace zoeditor
