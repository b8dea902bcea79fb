// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictureaccess.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QPointer>

#include "pictureview.h"

namespace zoeditor {

namespace {

struct Way {
    const char* name;
    int x;
    int y;
};

// In words of the person who hears them.
constexpr Way ways[] = {
    {QT_TRANSLATE_NOOP("zoeditor::PictureAccess", "One pixel left"), -1, 0},
    {QT_TRANSLATE_NOOP("zoeditor::PictureAccess", "One pixel right"), 1, 0},
    {QT_TRANSLATE_NOOP("zoeditor::PictureAccess", "One pixel up"), 0, -1},
    {QT_TRANSLATE_NOOP("zoeditor::PictureAccess", "One pixel down"), 0, 1},
};

QString translated(const char* text)
{
    return QCoreApplication::translate("zoeditor::PictureAccess", text);
}

/// A handle. An edge is a value, too, and so is the line between before and after: where it stands.
class HandleAccess : public QAccessibleInterface, public QAccessibleActionInterface, public QAccessibleValueInterface {
public:
    HandleAccess(PictureView* view, const zokit::PreviewHandle& handle) : m_view(view), m_handle(handle) {}

    bool isValid() const override { return m_view && handle().handle != zokit::Handle::None; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_view ? m_view->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override
    {
        return PictureView::isSplit(m_handle) ? QAccessible::Splitter : QAccessible::Grip;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid())
            return QString();
        if (kind == QAccessible::Name)
            return m_view->handleName(handle());
        if (kind != QAccessible::Value)
            return QString();
        if (PictureView::isSplit(m_handle))
            return QString::number(at());
        const QRect place = m_view->scene().place(handle().thing);
        return translated("left %1, top %2, %3 wide, %4 high")
            .arg(place.left())
            .arg(place.top())
            .arg(place.width())
            .arg(place.height());
    }

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QRect rect() const override
    {
        if (!isValid())
            return QRect();
        const QRect area = handle().area.toAlignedRect();
        return {m_view->mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        state.focusable = true;
        state.focused = isValid() && m_view->hasFocus() && isMine(m_view->currentHandle());
        state.movable = true;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface*>(this);
        if (type == QAccessible::ValueInterface && isEdge())
            return static_cast<QAccessibleValueInterface*>(this);
        return nullptr;
    }

    QStringList actionNames() const override
    {
        QStringList names{setFocusAction()};
        for (const Way& way : ways) {
            if (way.y == 0 || !PictureView::isSplit(m_handle))
                names.append(translated(way.name));
        }
        return names;
    }

    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

    void doAction(const QString& name) override
    {
        if (!isValid())
            return;
        if (name == setFocusAction()) {
            m_view->setFocus();
            m_view->setCurrentHandle(handle());
        }
        for (const Way& way : ways) {
            if (name == translated(way.name))
                m_view->step(handle(), {way.x, way.y});
        }
    }

    QVariant currentValue() const override { return isValid() ? QVariant(at()) : QVariant(); }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

    QVariant maximumValue() const override
    {
        if (!isValid())
            return QVariant();
        const QSize frame = m_view->scene().frame;
        return isUpright() ? frame.width() : frame.height();
    }

    void setCurrentValue(const QVariant& value) override
    {
        if (!isValid())
            return;
        const int by = value.toInt() - at();
        m_view->step(handle(), isUpright() ? QPoint(by, 0) : QPoint(0, by));
    }

private:
    bool isMine(const zokit::PreviewHandle& handle) const
    {
        return handle.thing == m_handle.thing && handle.handle == m_handle.handle;
    }

    /// As it is now; none when it is gone.
    zokit::PreviewHandle handle() const
    {
        const QVector<zokit::PreviewHandle> all = m_view->handles();
        const auto found =
            std::find_if(all.cbegin(), all.cend(), [this](const zokit::PreviewHandle& each) { return isMine(each); });
        return found == all.cend() ? zokit::PreviewHandle() : *found;
    }

    bool isUpright() const
    {
        const zokit::Handle which = handle().handle;
        return which == zokit::Handle::Left || which == zokit::Handle::Right || PictureView::isSplit(m_handle);
    }

    bool isEdge() const
    {
        if (!isValid())
            return false;
        const zokit::Handle which = handle().handle;
        return isUpright() || which == zokit::Handle::Top || which == zokit::Handle::Bottom;
    }

    /// Where the edge stands in the frame.
    int at() const
    {
        if (PictureView::isSplit(m_handle))
            return m_view->split();
        const QRect place = m_view->scene().place(handle().thing);
        switch (handle().handle) {
        case zokit::Handle::Left:
            return place.left();
        case zokit::Handle::Right:
            return place.left() + place.width();
        case zokit::Handle::Top:
            return place.top();
        default:
            return place.top() + place.height();
        }
    }

    QPointer<PictureView> m_view;
    zokit::PreviewHandle m_handle;
};

QAccessibleInterface* interfaceFor(const QString& /*className*/, QObject* object)
{
    auto* view = qobject_cast<PictureView*>(object);
    return view ? new PictureAccess(view) : nullptr;
}

} // namespace

PictureAccess::PictureAccess(PictureView* view) : QAccessibleWidget(view, QAccessible::Canvas) {}

PictureAccess::~PictureAccess()
{
    for (const QAccessible::Id child : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(child);
}

void PictureAccess::install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(interfaceFor);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

PictureView* PictureAccess::view() const
{
    return qobject_cast<PictureView*>(widget());
}

int PictureAccess::childCount() const
{
    return view() ? static_cast<int>(view()->handles().size()) : 0;
}

QAccessibleInterface* PictureAccess::childFor(const zokit::PreviewHandle& handle) const
{
    if (handle.handle == zokit::Handle::None)
        return nullptr;
    QAccessible::Id& id = m_children[{handle.thing, static_cast<int>(handle.handle)}];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new HandleAccess(view(), handle));
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface* PictureAccess::child(int index) const
{
    return view() ? childFor(view()->handles().value(index)) : nullptr;
}

int PictureAccess::indexOfChild(const QAccessibleInterface* child) const
{
    for (int row = 0; row < childCount(); ++row) {
        if (this->child(row) == child)
            return row;
    }
    return -1;
}

QAccessibleInterface* PictureAccess::childAt(int x, int y) const
{
    if (!view())
        return nullptr;
    return childFor(view()->handleAt(view()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* PictureAccess::focusChild() const
{
    return view() && view()->hasFocus() ? childFor(view()->currentHandle()) : nullptr;
}

} // namespace zoeditor
