// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "controls.h"

#include <algorithm>
#include <limits>
#include <optional>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>

#include <zokit/properties.h>
#include <zokit/settingsmodel.h>
#include <zokit/valuetext.h>

#include "buttons.h"
#include "valuecontrol.h"

namespace zoeditor {

using Model = zokit::SettingsModel;

namespace {

constexpr int swatchSide = 16;
constexpr int textLines = 3;

QIcon swatch(const QColor& color)
{
    QPixmap picture(swatchSide, swatchSide);
    picture.fill(color);
    QPainter painter(&picture);
    painter.setPen(Qt::gray);
    painter.drawRect(0, 0, swatchSide - 1, swatchSide - 1);
    return picture;
}

} // namespace

/// A field in which any number can be typed: one outside of the bounds is refused as a whole, with the sentence of
/// whoever takes values, and not letter by letter, which would leave another number.
template <typename Box>
class TypedBox : public Box {
public:
    using Box::Box;

    /// Is given a number that was typed to its end and lies outside.
    std::function<void(double)> onOutside;

    QValidator::State validate(QString& text, int& place) const override
    {
        const QValidator::State state = Box::validate(text, place);
        return state == QValidator::Invalid && typed(text) ? QValidator::Intermediate : state;
    }

    void fixup(QString& text) const override
    {
        Box::fixup(text);
        const std::optional<double> number = typed(text);
        if (number && onOutside && (*number < this->minimum() || *number > this->maximum()))
            onOutside(*number);
    }

private:
    std::optional<double> typed(QString text) const
    {
        const QString suffix = this->suffix();
        if (!suffix.isEmpty() && text.endsWith(suffix))
            text.chop(suffix.size());
        bool isNumber = false;
        const double number = this->locale().toDouble(text.trimmed(), &isNumber);
        return isNumber ? std::make_optional(number) : std::nullopt;
    }
};

/// A number with decimals: point and comma both stand before them, whatever the language. Otherwise one of them would
/// be passed over, and 1.5 be 15.
class DecimalBox : public TypedBox<QDoubleSpinBox> {
public:
    using TypedBox::TypedBox;

    QValidator::State validate(QString& text, int& place) const override
    {
        text = inLanguage(text);
        return TypedBox::validate(text, place);
    }
    double valueFromText(const QString& text) const override { return QDoubleSpinBox::valueFromText(inLanguage(text)); }

private:
    QString inLanguage(QString text) const
    {
        const auto point = locale().decimalPoint();
        return text.replace(QLatin1Char('.'), point).replace(QLatin1Char(','), point);
    }
};

/// Makes the fields of one control.
class ControlMaker {
public:
    ControlMaker(const QModelIndex& row, QWidget* parent)
        : m_row(row)
        , m_control(new ValueControl(parent))
        , m_layout(new QHBoxLayout(m_control))
        , m_kind(static_cast<zokit::Control>(row.data(Model::ControlRole).toInt()))
    {
        m_layout->setContentsMargins(0, 0, 0, 0);
    }

    ValueControl* make()
    {
        switch (m_kind) {
        case zokit::Control::CheckBox:
            makeCheckBox();
            break;
        case zokit::Control::SpinBox:
        case zokit::Control::Slider:
            makeNumber();
            break;
        case zokit::Control::ComboBox:
            makeComboBox();
            break;
        case zokit::Control::ColorButton:
            makeColorButton();
            break;
        case zokit::Control::FontChooser:
            makeFontChooser();
            break;
        case zokit::Control::TextEdit:
            makeTextEdit();
            break;
        default:
            makeLineEdit();
        }
        return m_control;
    }

private:
    QVariant role(int role) const { return m_row.data(role); }
    QString label() const { return role(Model::LabelRole).toString(); }

    /// \a field edits the value; \a part is empty for the one that has the focus.
    template <typename Field>
    Field* add(Field* field, const char* part = "")
    {
        const bool isMain = *part == '\0';
        field->setObjectName(QStringLiteral("%1:%2%3").arg(role(Model::TypeRole).toString(),
                                                           role(Model::KeyRole).toString(), QLatin1String(part)));
        field->setAccessibleName(label());
        field->setToolTip(role(Qt::ToolTipRole).toString());
        field->setFocusPolicy(Qt::StrongFocus); // The wheel gives none.
        field->installEventFilter(m_control);
        for (QWidget* inner : field->template findChildren<QWidget*>())
            inner->installEventFilter(m_control);
        m_layout->addWidget(field, isMain ? 1 : 0);
        if (isMain)
            m_control->setFocusProxy(field);
        return field;
    }

    void send(const QVariant& value) const { emit m_control->edited(value); }
    void onShow(std::function<void(const QVariant&)> show) { m_control->showBy(std::move(show)); }

    void makeCheckBox()
    {
        auto* box = add(new QCheckBox(m_control));
        // A screen reader switches it without a click.
        QObject::connect(box, &QCheckBox::toggled, m_control, [this_ = *this](bool isOn) { this_.send(isOn); });
        onShow([box](const QVariant& value) {
            const QSignalBlocker quiet(box);
            box->setChecked(value.toBool());
        });
    }

    template <typename Box, typename Number>
    Box* makeBox(Number lowest, Number highest)
    {
        auto* box = new Box(m_control);
        const QVariant low = role(Model::LowestRole);
        const QVariant high = role(Model::HighestRole);
        box->setRange(low.isValid() ? low.value<Number>() : lowest, high.isValid() ? high.value<Number>() : highest);
        box->setSingleStep(std::max(static_cast<Number>(role(Model::StepRole).toDouble()), Number(0.001)));
        const QString unit = role(Model::UnitRole).toString();
        box->setSuffix(unit.isEmpty() ? QString() : QLatin1Char(' ') + unit);
        box->setKeyboardTracking(false); // A number is set when it is written to its end.
        box->template findChild<QLineEdit*>()->setPlaceholderText(ValueControl::tr("not set"));
        add(box);
        if (low.isValid() && high.isValid())
            box->setToolTip(ValueControl::tr("%1\nFrom %2 to %3.")
                                .arg(box->toolTip(), box->locale().toString(box->minimum()),
                                     box->locale().toString(box->maximum())));
        QObject::connect(box, QOverload<Number>::of(&Box::valueChanged), m_control,
                         [this_ = *this](Number value) { this_.send(value); });
        box->onOutside = [this_ = *this](double number) {
            this_.send(number);
            // The field goes on to show a number of its own, where nothing was set, too.
            QTimer::singleShot(0, this_.m_control,
                               [control = this_.m_control] { control->setValue(control->shownValue()); });
        };
        return box;
    }

    /// Shows \a value in \a box; what is no number within the bounds, as nothing: it would be another one.
    template <typename Box, typename Number>
    static void showIn(Box* box, const QString& suffix, const QVariant& value)
    {
        const QSignalBlocker blocker(box);
        const auto number = value.value<Number>();
        const bool isThere = value.isValid() && number >= box->minimum() && number <= box->maximum();
        box->setSuffix(isThere ? suffix : QString());
        if (isThere)
            box->setValue(number);
        else
            box->clear();
    }

    void makeNumber()
    {
        if (const auto* property =
                zokit::findProperty(role(Model::TypeRole).toString(), role(Model::KeyRole).toString());
            property && property->kind == zokit::ValueKind::Number) {
            auto* box = makeBox<DecimalBox, double>(-1e9, 1e9);
            box->setDecimals(std::max(role(Model::DecimalsRole).toInt(), 2));
            const QString suffix = box->suffix();
            onShow([box, suffix](const QVariant& value) { showIn<QDoubleSpinBox, double>(box, suffix, value); });
            return;
        }
        using Limits = std::numeric_limits<int>;
        auto* box = makeBox<TypedBox<QSpinBox>, int>(Limits::min(), Limits::max());
        QSlider* slider = m_kind == zokit::Control::Slider ? makeSlider() : nullptr;
        const QString suffix = box->suffix();
        onShow([box, slider, suffix](const QVariant& value) {
            showIn<QSpinBox, int>(box, suffix, value);
            if (slider) {
                const QSignalBlocker sliderBlocker(slider);
                slider->setValue(value.toInt());
            }
        });
    }

    QSlider* makeSlider()
    {
        auto* slider = new QSlider(Qt::Horizontal, m_control);
        slider->setRange(role(Model::VisualLowestRole).toInt(), role(Model::VisualHighestRole).toInt());
        add(slider, ":slider");
        slider->setMinimumWidth(60);
        m_layout->setStretch(0, 0);
        m_layout->setStretch(1, 1);
        QObject::connect(slider, &QSlider::valueChanged, m_control, [this_ = *this](int value) { this_.send(value); });
        return slider;
    }

    void makeComboBox()
    {
        auto* box = new QComboBox(m_control);
        const QVariantList choices = role(Model::ChoicesRole).toList();
        const QStringList names = role(Model::ChoiceNamesRole).toStringList();
        for (int i = 0; i < choices.size(); ++i)
            box->addItem(names.value(i), choices.at(i));
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(8);
        box->setPlaceholderText(ValueControl::tr("not set"));
        box->view()->setAccessibleName(label());
        add(box);
        QObject::connect(box, QOverload<int>::of(&QComboBox::activated), m_control,
                         [this_ = *this, choices](int index) { this_.send(choices.value(index)); });
        onShow(
            [box, choices](const QVariant& value) { box->setCurrentIndex(static_cast<int>(choices.indexOf(value))); });
    }

    void makeColorButton()
    {
        auto* button = add(new QPushButton(m_control));
        QObject::connect(button, &QPushButton::clicked, m_control,
                         [this_ = *this, button] { this_.chooseColor(button); });
        onShow([button](const QVariant& value) {
            const auto color = value.value<QColor>();
            button->setText(color.isValid() ? color.name() : ValueControl::tr("not set"));
            button->setIcon(color.isValid() ? swatch(color) : QIcon());
            button->setAccessibleDescription(button->text());
        });
    }

    /// The value follows the dialog; cancelled, it is what it was.
    void chooseColor(QPushButton* button) const
    {
        const QVariant before = m_control->shownValue();
        auto* dialog = new QColorDialog(before.value<QColor>(), button);
        dialog->setObjectName(QStringLiteral("colorDialog"));
        dialog->setWindowTitle(label());
        QObject::connect(dialog, &QColorDialog::currentColorChanged, m_control,
                         [this_ = *this](const QColor& color) { this_.send(color); });
        QObject::connect(dialog, &QColorDialog::finished, m_control, [this_ = *this, before](int result) {
            if (result == QDialog::Rejected)
                this_.send(before);
            this_.m_control->endChoice();
        });
        m_control->beginChoice();
        showOnce(dialog);
    }

    void makeFontChooser()
    {
        auto* box = new QFontComboBox(m_control);
        box->lineEdit()->setAccessibleName(label());
        box->lineEdit()->setPlaceholderText(ValueControl::tr("not set"));
        box->setMinimumContentsLength(8);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->view()->setAccessibleName(label());
        add(box);
        QObject::connect(box, QOverload<int>::of(&QComboBox::activated), m_control,
                         [this_ = *this, box](int index) { this_.send(box->itemText(index)); });
        onShow([box](const QVariant& value) {
            const QSignalBlocker blocker(box);
            const QString family =
                value.userType() == QMetaType::QFont ? value.value<QFont>().family() : value.toString();
            box->setCurrentIndex(box->findText(family));
            box->setEditText(family); // Also one that is not installed.
        });
    }

    void makeTextEdit()
    {
        auto* edit = add(new QPlainTextEdit(m_control));
        edit->setUndoRedoEnabled(false);
        edit->setTabChangesFocus(true);
        edit->setPlaceholderText(ValueControl::tr("not set"));
        edit->setFixedHeight(edit->fontMetrics().lineSpacing() * textLines + 12);
        QObject::connect(edit, &QPlainTextEdit::textChanged, m_control, [this_ = *this, edit] {
            emit this_.m_control->gestureBegun();
            this_.send(edit->toPlainText());
        });
        onShow([edit](const QVariant& value) {
            if (edit->toPlainText() == value.toString())
                return;
            const QSignalBlocker blocker(edit);
            edit->setPlainText(value.toString());
        });
    }

    /// A line of text: also for sizes, ranges, lists with commas, and files.
    void makeLineEdit()
    {
        auto* edit = add(new QLineEdit(m_control));
        constexpr int frame = 12; // Pixels on both sides together.
        edit->setPlaceholderText(ValueControl::tr("not set"));
        if (m_kind != zokit::Control::FileChooser) // Its button takes room, and a file is mostly there.
            edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(edit->placeholderText()) + frame);
        QObject::connect(edit, &QLineEdit::editingFinished, m_control, [this_ = *this, edit] {
            if (edit->isModified())
                this_.send(edit->text());
            edit->setModified(false);
        });
        const zokit::Address address{role(Model::TypeRole).toString(), zokit::Address::ofType,
                                     role(Model::KeyRole).toString()};
        onShow([edit, address](const QVariant& value) { edit->setText(zokit::valueAsText(address, value)); });
        if (m_kind != zokit::Control::FileChooser)
            return;
        auto* browse = new QToolButton(m_control);
        browse->setText(QStringLiteral("..."));
        add(browse, ":browse")->setAccessibleName(ValueControl::tr("Choose: %1").arg(label()));
        QObject::connect(browse, &QToolButton::clicked, m_control, [this_ = *this, edit] {
            const QPointer<ValueControl> control(this_.m_control); // A file that is read may become current meanwhile.
            const QString path = QFileDialog::getOpenFileName(edit->window(), this_.label(), edit->text());
            if (control && !path.isEmpty())
                this_.send(path);
        });
    }

    QPersistentModelIndex m_row;
    ValueControl* m_control;
    QHBoxLayout* m_layout;
    zokit::Control m_kind;
};

ValueControl* makeControl(const QModelIndex& value, QWidget* parent)
{
    return ControlMaker(value, parent).make();
}

} // namespace zoeditor
