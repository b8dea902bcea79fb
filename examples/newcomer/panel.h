// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets>

#include <zokit/properties.h>
#include <zokit/valuetext.h>
#include <zokit/workbench.h>

using Model = zokit::SettingsModel;
using zokit::Control;

inline Control controlOf(const QModelIndex& value)
{
    return static_cast<Control>(value.data(Model::ControlRole).toInt());
}

/// Makes the field of a value. Fields set what they show at once, lines of text when they are left. What is done in one
/// until it closes is one step of the history, and Escape takes it back.
class Fields : public QStyledItemDelegate {
public:
    Fields(Model& model, zokit::History& history, QObject* parent)
        : QStyledItemDelegate(parent), m_model(model), m_history(history)
    {
        connect(this, &QAbstractItemDelegate::closeEditor, this, [this](QWidget*, EndEditHint hint) {
            if (hint == RevertModelCache) // Escape
                m_history.cancelGesture();
        });
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        m_history.beginGesture(zokit::Message()); // The kit says what was changed.
        const Control control = controlOf(index);
        const QVariant now = index.data(Qt::EditRole);
        const auto set = [this, row = QPersistentModelIndex(index)](const QVariant& value) {
            m_model.setData(row, value); // The model tells what is refused.
        };
        if (control == Control::SpinBox || control == Control::Slider) {
            auto* field = new QDoubleSpinBox(parent);
            field->setDecimals(index.data(Model::DecimalsRole).toInt());
            field->setRange(index.data(Model::LowestRole).toDouble(), index.data(Model::HighestRole).toDouble());
            field->setSingleStep(index.data(Model::StepRole).toDouble());
            field->setSuffix(' ' + index.data(Model::UnitRole).toString());
            field->setValue(now.toDouble());
            connect(field, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, set);
            return field;
        }
        if (control == Control::ComboBox || control == Control::FontChooser) {
            auto* field = control == Control::ComboBox ? new QComboBox(parent) : new QFontComboBox(parent);
            const QVariantList choices = index.data(Model::ChoicesRole).toList(); // None of a font.
            const QStringList names = index.data(Model::ChoiceNamesRole).toStringList();
            field->addItems(names);
            field->setCurrentText(index.data().toString());
            connect(field, &QComboBox::textActivated, this,
                    [=](const QString& name) { set(choices.value(names.indexOf(name), name)); });
            return field;
        }
        if (control == Control::TextEdit) {
            auto* field = new QPlainTextEdit(now.toString(), parent);
            field->setMinimumHeight(4 * field->fontMetrics().height());
            connect(field, &QPlainTextEdit::textChanged, this, [=] { set(field->toPlainText()); });
            return field;
        }
        const zokit::Address address{index.data(Model::TypeRole).toString(), 0, index.data(Model::KeyRole).toString()};
        return new QLineEdit(zokit::valueAsText(address, now), parent);
    }

    void setEditorData(QWidget*, const QModelIndex&) const override {} // A field begins with its value.

    void setModelData(QWidget* field, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        const auto* line = qobject_cast<const QLineEdit*>(field);
        if (line && line->isModified())
            model->setData(index, line->text());
    }

    void destroyEditor(QWidget* field, const QModelIndex& index) const override
    {
        m_history.endGesture();
        QStyledItemDelegate::destroyEditor(field, index);
    }

private:
    Model& m_model;
    zokit::History& m_history;
};

/// All settings of a file as the kit's table has them, each value with the field that the table names for it.
class Panel : public QTreeView {
public:
    Panel(Model& model, zokit::History& history)
    {
        setModel(&model);
        setItemDelegate(new Fields(model, history, this));
        setEditTriggers(EditKeyPressed);
        setAlternatingRowColors(true);
        setMinimumWidth(350);
        setColumnWidth(Model::NameColumn, 190);
        connect(this, &QTreeView::clicked, this,
                [this](const QModelIndex& index) { edit(index, AllEditTriggers, nullptr); });
    }

    /// What is being edited is set.
    void closeField()
    {
        if (QWidget* field = indexWidget(currentIndex().siblingAtColumn(Model::ValueColumn))) {
            commitData(field);
            closeEditor(field, QAbstractItemDelegate::NoHint);
        }
    }

protected:
    /// Some values have two states, or a dialog, instead of a field.
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override
    {
        if (trigger != AllEditTriggers && trigger != EditKeyPressed)
            return QTreeView::edit(index, trigger, event);
        const QModelIndex value = index.siblingAtColumn(Model::ValueColumn);
        const QVariant now = value.data(Qt::EditRole);
        const Control control = controlOf(value);
        if (control == Control::CheckBox)
            return model()->setData(value, !now.toBool());
        if (control == Control::ColorButton) {
            const QColor color = QColorDialog::getColor(now.value<QColor>(), this);
            return color.isValid() && model()->setData(value, color);
        }
        if (control == Control::FileChooser) {
            const QString path = QFileDialog::getOpenFileName(this, QString(), now.toString());
            return !path.isEmpty() && model()->setData(value, path);
        }
        return QTreeView::edit(value, trigger, event);
    }
};
