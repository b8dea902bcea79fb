// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filespane.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QScrollBar>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QUrl>
#include <QVBoxLayout>

#include "hint.h"
#include "session.h"
#include "thumbnails.h"
#include "undokeys.h"

namespace zoeditor {

namespace {

constexpr QSize pictureSize(64, 36);
constexpr int leastWidth = 123;      // Pixels: the longest word for a state.
constexpr int roomForPictures = 200; // A list that is narrower shows words alone, and these whole.

/// Draws rows without their pictures where these have no size.
class Words : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->decorationSize.isEmpty()) {
            option->features &= ~QStyleOptionViewItem::ViewItemFeatures(QStyleOptionViewItem::HasDecoration);
            option->icon = QIcon();
        }
        const QStyle* style = option->widget ? option->widget->style() : QApplication::style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
        const int picture = option->decorationSize.isEmpty() ? 0 : option->decorationSize.width() + 2 * margin;
        const int width = option->rect.width() - picture - 2 * margin;
        if (width > 0) // Else it is only measured.
            option->text = FilesPane::fitted(option->text.split(QChar::LineSeparator), option->fontMetrics, width)
                               .join(QChar::LineSeparator);
    }
};

} // namespace

FilesPane::FilesPane(Session* session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_order(new QSortFilterProxyModel(this))
    , m_view(new QListView(this))
    , m_thumbnails(new Thumbnails(session, this))
{
    setObjectName(QStringLiteral("files"));
    m_order->setSourceModel(&session->files());
    m_order->setFilterRole(Qt::DisplayRole); // Names, and states.
    m_order->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_order->setSortCaseSensitivity(Qt::CaseInsensitive);

    auto* filter = new QLineEdit(this);
    filter->setObjectName(QStringLiteral("filter"));
    filter->setPlaceholderText(tr("Filter"));
    filter->setAccessibleName(tr("Filter by name or state"));
    filter->setClearButtonEnabled(true);
    auto* order = makeOrder();
    setUpView();
    showHint(m_view,
             [filter] { return filter->text().isEmpty() ? tr("Drop films or folders here.") : tr("Nothing found."); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter);
    layout->addWidget(order);
    layout->addWidget(m_view, 1);

    m_soon.setSingleShot(true); // Pictures are asked for once things have come to rest.
    m_soon.setInterval(0);
    const auto start = QOverload<>::of(&QTimer::start);
    connect(&m_soon, &QTimer::timeout, this, &FilesPane::askForSeen);
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, &m_soon, start);
    connect(m_order, &QAbstractItemModel::rowsInserted, &m_soon, start);
    connect(m_order, &QAbstractItemModel::rowsRemoved, &m_soon, start);
    connect(m_order, &QAbstractItemModel::layoutChanged, &m_soon, start);
    connect(session, &Session::fileStateChanged, &m_soon, start);
    m_view->viewport()->installEventFilter(this);

    leaveUndoToWindow(filter);
    connect(filter, &QLineEdit::textChanged, m_order, &QSortFilterProxyModel::setFilterFixedString);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FilesPane::takeSelection);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &FilesPane::takeSelection);
    connect(session, &Session::selectionChanged, this, &FilesPane::showSelection);
    connect(session, &Session::currentChanged, this, &FilesPane::showSelection);
    showSelection();
    m_soon.start();
}

QComboBox* FilesPane::makeOrder()
{
    auto* order = new QComboBox(this);
    order->setObjectName(QStringLiteral("order"));
    order->setAccessibleName(tr("Order of the files"));
    order->view()->setAccessibleName(order->accessibleName());
    order->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    order->setMinimumContentsLength(6);
    for (const auto& [name, role] : FilesModel::orders())
        order->addItem(name, role);
    order->setFocusPolicy(Qt::StrongFocus); // The wheel gives none.
    order->installEventFilter(this);
    connect(order, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, order] {
        const int role = order->currentData().toInt();
        m_order->setSortRole(role);
        m_order->sort(role < 0 ? -1 : 0);
    });
    return order;
}

void FilesPane::setUpView()
{
    m_view->setObjectName(QStringLiteral("fileList"));
    m_view->setAccessibleName(tr("Files"));
    m_view->setModel(m_order);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setUniformItemSizes(true);
    m_view->setItemDelegate(new Words(m_view));
    m_view->setIconSize(pictureSize);
    m_view->setMinimumWidth(leastWidth);
    m_view->setTextElideMode(Qt::ElideMiddle);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* remove = new QShortcut(QKeySequence(QKeySequence::Delete), m_view);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &FilesPane::removalWanted);
    auto* paste = new QShortcut(QKeySequence(QKeySequence::Paste), m_view);
    paste->setContext(Qt::WidgetShortcut);
    connect(paste, &QShortcut::activated, m_session, // As a file manager copies them.
            [this] { m_session->openDropped(localFiles(QGuiApplication::clipboard()->mimeData())); });
}

bool FilesPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && watched != m_view->viewport()) {
        event->ignore(); // Whoever turns the wheel over the list, and a little above, wants no other order.
        return !static_cast<QWidget*>(watched)->hasFocus();
    }
    if (event->type() == QEvent::Resize)
        m_view->setIconSize(m_view->width() < roomForPictures ? QSize(0, 0) : pictureSize);
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        m_soon.start();
    return QWidget::eventFilter(watched, event);
}

QStringList FilesPane::fitted(const QStringList& lines, const QFontMetrics& metrics, int width)
{
    QStringList fitting{metrics.elidedText(lines.value(0), Qt::ElideMiddle, width)};
    QString said = lines.value(1);
    QString more = lines.value(2);
    if (more.isEmpty() && metrics.horizontalAdvance(said) > width) {
        const QStringList words = said.split(QLatin1Char(' '));
        int count = 1;
        while (count < words.size()
               && metrics.horizontalAdvance(words.mid(0, count + 1).join(QLatin1Char(' '))) <= width)
            ++count;
        said = words.mid(0, count).join(QLatin1Char(' '));
        more = words.mid(count).join(QLatin1Char(' '));
    }
    const QString separator = FilesModel::separator();
    while (metrics.horizontalAdvance(more) > width && more.contains(separator)) {
        const QString longer = said + separator + more.section(separator, 0, 0);
        if (metrics.horizontalAdvance(longer) > width)
            break;
        said = longer;
        more = more.section(separator, 1);
    }
    for (const QString& line : {said, more})
        fitting.append(metrics.elidedText(line, Qt::ElideRight, width));
    return fitting;
}

QStringList FilesPane::localFiles(const QMimeData* data)
{
    QStringList files;
    if (!data)
        return files; // An empty clipboard.
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

QVector<int> FilesPane::chosenRows() const
{
    QVector<int> rows;
    for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
        rows.append(m_order->mapToSource(index).row());
    return rows;
}

void FilesPane::takeSelection()
{
    if (m_isShowing)
        return;
    QVector<zokit::FileSettings*> files;
    for (const int row : chosenRows()) {
        if (zokit::FileSettings* file = m_session->project().file(m_session->files().rows().at(row).file))
            files.append(file);
    }
    const QModelIndex current = m_view->selectionModel()->currentIndex();
    zokit::FileSettings* file = m_session->project().file(current.data(FilesModel::FileRole).toULongLong());
    if (file && files.contains(file))
        m_session->setCurrent(file);
    const int row = current.isValid() ? m_order->mapToSource(current).row() : -1;
    if (files.isEmpty() && row >= 0 && !m_session->files().rows().at(row).problem.isEmpty())
        m_session->showProblem(m_session->files().rows().at(row).path);
    if (!files.isEmpty())
        m_session->select(files);
}

void FilesPane::showSelection()
{
    m_isShowing = true;
    QItemSelection selection;
    for (const zokit::FileSettings* file : m_session->selected()) {
        const QModelIndex index = m_session->files().index(m_session->files().rowOf(file->file()));
        selection.select(m_order->mapFromSource(index), m_order->mapFromSource(index));
    }
    m_view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (const QModelIndex problem = m_order->mapFromSource(m_session->files().index(m_session->shownProblem()));
        problem.isValid())
        m_view->selectionModel()->setCurrentIndex(problem, QItemSelectionModel::SelectCurrent);
    if (m_session->current()) {
        const QModelIndex index =
            m_order->mapFromSource(m_session->files().index(m_session->files().rowOf(m_session->current()->file())));
        m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    }
    m_isShowing = false;
}

void FilesPane::askForSeen()
{
    const QRect seen = m_view->viewport()->rect();
    QVector<zokit::Identity> files;
    for (int row = 0; row < m_order->rowCount(); ++row) {
        const QModelIndex index = m_order->index(row, 0);
        if (m_view->visualRect(index).intersects(seen))
            files.append(index.data(FilesModel::FileRole).toULongLong());
    }
    m_thumbnails->ask(files);
}

} // namespace zoeditor
