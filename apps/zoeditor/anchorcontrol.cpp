// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "anchorcontrol.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>

#include <zokit/placement.h>

#include "valuecontrol.h"

namespace zoeditor {

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("zoeditor::AnchorControl", text);
}

constexpr int freePlace = -1; // Where the others have their corner.

void addPlaces(QComboBox* box)
{
    box->addItem(say(QT_TRANSLATE_NOOP("zoeditor::AnchorControl", "free")), freePlace);
    for (int corner = 0; corner <= static_cast<int>(zokit::Corner::BottomRight); ++corner)
        box->addItem(zokit::cornerName(static_cast<zokit::Corner>(corner)), corner);
}

std::optional<zokit::Anchor> shownBy(const QVariant& value)
{
    return value.isValid() ? zokit::anchorFrom(value.toMap()) : std::nullopt;
}

} // namespace

ValueControl* makeAnchorControl(const QString& label, QWidget* parent)
{
    auto* control = new ValueControl(parent);
    auto* box = new QComboBox(control);
    box->setObjectName(QStringLiteral("Watermark:anchor"));
    box->setAccessibleName(label);
    box->view()->setAccessibleName(label);
    box->setToolTip(say(QT_TRANSLATE_NOOP("zoeditor::AnchorControl",
                                          "The place in the frame that the watermark keeps at every size. Free: it "
                                          "stays where it was put. (anchor)")));
    box->setFocusPolicy(Qt::StrongFocus); // The wheel gives none.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(8);
    addPlaces(box);
    box->installEventFilter(control);
    auto* layout = new QHBoxLayout(control);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box);
    control->setFocusProxy(box);
    control->showBy([box](const QVariant& value) {
        const std::optional<zokit::Anchor> anchor = shownBy(value);
        box->setCurrentIndex(box->findData(anchor ? static_cast<int>(anchor->corner) : freePlace));
    });
    QObject::connect(box, QOverload<int>::of(&QComboBox::activated), control, [control, box](int index) {
        const int place = box->itemData(index).toInt();
        if (place == freePlace) {
            emit control->edited(QVariant());
            return;
        }
        zokit::Anchor anchor = shownBy(control->shownValue()).value_or(zokit::Anchor());
        anchor.corner = static_cast<zokit::Corner>(place);
        emit control->edited(zokit::toValues(anchor));
    });
    return control;
}

} // namespace zoeditor
