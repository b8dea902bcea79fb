// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// replay SESSION: does what a recorded session says, one operation a line, on the library as a host sees it, and
// prints what comes of it: after each line ("> ") its result ("= "), the signals ("! "), the numbers of the logged
// events
// ("# ") and how often the preference store was written ("@ "); at the end all trees and the store. Equal sessions give
// equal texts on every Qt, compiler and processor; what depends on the installed fonts is left out.
//
// A line is an operation and its arguments, with blanks between: an address is TYPE POS, a value its type and text,
// properties stand in braces. Words with blanks stand in quotes, "\u0041" is a character. "# " starts a comment.
//
//     model A                                   a model of all types, to be used from here on
//     setData Watermark 0 wm_hposition int 120
//     insertDataItem Watermark -1 { wm_istextwatermark bool true, wm_textcontent string "two words" }

#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>

#include <QCryptographicHash>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QTime>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "testapplication.h"

namespace {

using Node = ZoEffectItemData;
using Properties = QMap<QString, QVariant>;

void say(const QString& text)
{
    std::printf("%s\n", text.toUtf8().constData());
}

// --- Values to text ----------------------------------------------------------------------------------------------

QString quoted(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        if (c.unicode() < 0x20 || c.unicode() > 0x7e || c == '"' || c == '\\')
            result += QString("\\u%1").arg(int(c.unicode()), 4, 16, QChar('0'));
        else
            result += c;
    }
    return '"' + result + '"';
}

QString exact(double number)
{
    if (std::isnan(number))
        return "nan";
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", number);
    return text;
}

QString exact(const QVariant& value);

QString exact(const Properties& properties)
{
    QStringList entries;
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        entries << it.key() + ": " + exact(it.value());
    return '{' + entries.join(", ") + '}';
}

QString exact(const QVariantList& list)
{
    QStringList entries;
    for (const QVariant& value : list)
        entries << exact(value);
    return '[' + entries.join(", ") + ']';
}

QString exactFont(const QFont& font)
{
    return QString("font %1 %2%3%4")
        .arg(quoted(font.family()), QString::number(font.pointSize()), font.bold() ? " bold" : "",
             font.italic() ? " italic" : "");
}

QString exact(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return "invalid";
    case QMetaType::Bool:
        return value.toBool() ? "bool true" : "bool false";
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QString("%1 %2").arg(value.typeName(), value.toString());
    case QMetaType::Double:
    case QMetaType::Float:
        return QString("%1 %2").arg(value.typeName(), exact(value.toDouble()));
    case QMetaType::QString:
        return "string " + quoted(value.toString());
    case QMetaType::QByteArray:
        return "bytes " + quoted(QString::fromLatin1(value.toByteArray()));
    case QMetaType::QChar:
        return "char " + quoted(value.toChar());
    case QMetaType::QColor:
        return value.value<QColor>().isValid() ? "color " + value.value<QColor>().name(QColor::HexArgb)
                                               : QString("color invalid");
    case QMetaType::QFont:
        return exactFont(value.value<QFont>());
    case QMetaType::QDate:
        return "date " + value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return "time " + value.toTime().toString(Qt::ISODate);
    case QMetaType::QSize:
        return QString("size %1 %2").arg(value.toSize().width()).arg(value.toSize().height());
    case QMetaType::QPoint:
        return QString("point %1 %2").arg(value.toPoint().x()).arg(value.toPoint().y());
    case QMetaType::QRect: {
        const QRect rect = value.toRect();
        return QString("rect %1 %2 %3 %4").arg(rect.left()).arg(rect.top()).arg(rect.width()).arg(rect.height());
    }
    case QMetaType::QStringList: {
        QStringList texts;
        const QStringList list = value.toStringList();
        for (const QString& text : list)
            texts << quoted(text);
        return "strings [" + texts.join(", ") + ']';
    }
    case QMetaType::QVariantList:
        return "list " + exact(value.toList());
    case QMetaType::QVariantMap:
        return "map " + exact(value.toMap());
    default:
        qFatal("no text for a value of type %s", value.typeName());
    }
    return QString();
}

QString exact(bool value)
{
    return value ? "true" : "false";
}

QString exact(const Node* node)
{
    if (!node)
        return "null";
    const QString parent = node->parent() ? quoted(node->parent()->name()) : QString("none");
    return QString("node %1, row %2 of %3, %4 children")
        .arg(quoted(node->name()), QString::number(node->childNumber()), parent, QString::number(node->childCount()));
}

QString exact(const QPixmap& picture)
{
    if (picture.isNull())
        return "no picture";
    const QImage pixels = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (int row = 0; row < pixels.height(); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(row));
        QByteArray bytes;
        for (int column = 0; column < pixels.width(); ++column)
            bytes += QByteArray::number(line[column], 16) + ' ';
        hash.addData(bytes);
    }
    return QString("%1 x %2, %3")
        .arg(QString::number(picture.width()), QString::number(picture.height()),
             QString::fromLatin1(hash.result().toHex()));
}

void sayTree(const Node& node, const QString& indent)
{
    QString line = QString("%1%2 %3 %4")
                       .arg(indent, quoted(node.name()), QString::number(node.checkState()), exact(node.properties()));
    if (node.objectName() != node.name())
        line += " called " + quoted(node.objectName());
    if (const auto* record = static_cast<const SubEffectItem*>(node.internalData()))
        line += QString(" record %1").arg(record->id);
    say(line);
    for (int row = 0; row < node.childCount(); ++row) {
        if (node.child(row)->parent() != &node)
            say(indent + "  under another parent:");
        sayTree(*node.child(row), indent + "  ");
    }
}

// --- Text to values ----------------------------------------------------------------------------------------------

/// The words of one line. A bad line ends the program.
class Words {
public:
    explicit Words(const QString& line) : m_line(line)
    {
        int at = 0;
        while (at < line.size()) {
            if (line.at(at).isSpace())
                ++at;
            else if (QString("{}[],").contains(line.at(at)))
                m_words << line.mid(at++, 1);
            else
                at = line.at(at) == '"' ? readQuoted(at + 1) : readPlain(at);
        }
    }

    QString word()
    {
        if (m_next >= m_words.size())
            fail();
        return m_words.at(m_next++);
    }
    bool ended() const { return m_next == m_words.size(); }
    /// Whether the next word is \a expected, which is passed over then.
    bool skips(const QString& expected)
    {
        const bool found = !ended() && m_words.at(m_next) == expected;
        m_next += found ? 1 : 0;
        return found;
    }

    int number()
    {
        bool ok = false;
        const int result = word().toInt(&ok);
        if (!ok)
            fail();
        return result;
    }
    bool truth() { return word() == "true"; }
    QVariant value();
    Properties properties();
    QStringList texts();

    [[noreturn]] void fail() const
    {
        std::fprintf(stderr, "replay: cannot read: %s\n", qPrintable(m_line));
        std::exit(2);
    }

private:
    QVariant plainValue(const QString& type, const QString& text);
    QVariant shapeOrTime(const QString& type, const QString& text);

    int readQuoted(int at)
    {
        QString word;
        for (; at < m_line.size() && m_line.at(at) != '"'; ++at) {
            if (m_line.mid(at, 2) == "\\u") {
                word += QChar(m_line.mid(at + 2, 4).toUShort(nullptr, 16));
                at += 5;
            } else {
                word += m_line.at(at);
            }
        }
        m_words << word;
        return at + 1;
    }
    int readPlain(int at)
    {
        const int start = at;
        while (at < m_line.size() && !m_line.at(at).isSpace() && !QString("{}[],").contains(m_line.at(at)))
            ++at;
        m_words << m_line.mid(start, at - start);
        return at;
    }

    QString m_line;
    QStringList m_words;
    int m_next = 0;
};

Properties Words::properties()
{
    Properties result;
    if (!skips("{"))
        fail();
    while (!skips("}")) {
        const QString key = word();
        result.insert(key, value());
        skips(",");
    }
    return result;
}

QStringList Words::texts()
{
    QStringList result;
    if (!skips("["))
        fail();
    while (!skips("]")) {
        result << word();
        skips(",");
    }
    return result;
}

QVariant Words::value()
{
    const QString type = word();
    if (type == "invalid")
        return QVariant();
    if (type == "list") {
        QVariantList result;
        if (!skips("["))
            fail();
        while (!skips("]")) {
            result << value();
            skips(",");
        }
        return result;
    }
    if (type == "strings")
        return texts();
    if (type == "map")
        return properties();
    return plainValue(type, word());
}

/// Values of one word, or of that and some numbers.
QVariant Words::plainValue(const QString& type, const QString& text)
{
    if (type == "bool")
        return text == "true";
    if (type == "int")
        return text.toInt();
    if (type == "uint")
        return text.toUInt();
    if (type == "qlonglong")
        return text.toLongLong();
    if (type == "qulonglong")
        return text.toULongLong();
    if (type == "double")
        return text == "-0" ? -0.0 : text.toDouble();
    if (type == "float")
        return text.toFloat();
    if (type == "string")
        return text;
    if (type == "bytes")
        return text.toLatin1();
    if (type == "char")
        return text.at(0);
    if (type == "color")
        return text == "invalid" ? QColor() : QColor(text);
    if (type == "font")
        return QFont(text, number());
    return shapeOrTime(type, text);
}

QVariant Words::shapeOrTime(const QString& type, const QString& text)
{
    if (type == "date")
        return QDate::fromString(text, Qt::ISODate);
    if (type == "time")
        return QTime::fromString(text, Qt::ISODate);
    if (type == "size")
        return QSize(text.toInt(), number());
    if (type == "point")
        return QPoint(text.toInt(), number());
    if (type == "rect") {
        const int top = number();
        const int width = number();
        return QRect(text.toInt(), top, width, number());
    }
    fail();
}

// --- A session ---------------------------------------------------------------------------------------------------

/// The sizes that count as those of every text: measured ones depend on the fonts.
constexpr int textWidth = 101;
constexpr int textHeight = 21;
constexpr int notMeasured = -12345;
const QString widthKey = "wm_imagewidth";
const QString heightKey = "wm_imageheight";

class Session : public QObject {
    Q_OBJECT

public:
    Session();

    void run(const QString& line);
    void sayEnd() const;

private:
    using Operation = std::function<QString(Words&)>;

    void addConstruction();
    void addValues();
    void addLists();
    void addSelection();
    void addGeometry();
    void addDefaults();
    void addNodes();
    void listen(const QString& name, ZoEffectModel& model);
    QString addModel(const QString& name, ZoEffectModel* model);
    ZoEffectModel& model(const QString& name);
    Node* node(Words& words) const;
    QString getWatermark(int width, int height, bool honourIgnore, bool onlySize);

    std::map<QString, std::unique_ptr<ZoEffectModel>> m_models;
    ZoEffectModel* m_model = nullptr; ///< The one in use.
    std::map<QString, Operation> m_operations;
    QStringList m_signals;
    bool m_measures = false; ///< A picture is being drawn: sizes are measured.
};

Session::Session()
{
    addConstruction();
    addValues();
    addLists();
    addSelection();
    addGeometry();
    addDefaults();
    addNodes();
}

void Session::listen(const QString& name, ZoEffectModel& model)
{
    const auto heard = [this, name](const QString& signal, const QStringList& arguments) {
        m_signals << name + ' ' + signal + '(' + arguments.join(", ") + ')';
    };
    const auto text = [](int number) { return QString::number(number); };
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, [=](const QString& type, const QString& key, const QVariant& val, int pos) {
                if (!m_measures || (key != widthKey && key != heightKey))
                    heard("effectDataChanged", {type, key, exact(val), text(pos)});
            });
    connect(&model, QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged), this,
            [=](const QString& type) { heard("effectDataChanged", {type}); });
    connect(&model, &ZoEffectModel::currentItemChanged, this,
            [=](const QString& type) { heard("currentItemChanged", {type}); });
    connect(&model, &ZoEffectModel::currentSubItemChanged, this, [=](const QString& type, int index) {
        heard("currentSubItemChanged", {type, text(index)});
    });
    connect(&model, &ZoEffectModel::applyItemDataTo, this,
            [=](ZoEffectItemData* item, const QString& type, int pos, int applyto) {
                heard("applyItemDataTo", {"node " + quoted(item->name()), type, text(pos), text(applyto)});
            });
    connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this,
            [=](const QMap<QString, QVariant>& props, const QString& type, int pos, int appto) {
                heard("applyItemDataSomePropertyTo", {exact(props), type, text(pos), text(appto)});
            });
    connect(&model, &ZoEffectModel::effectDataAboutChange, this,
            [=](const QString& type) { heard("effectDataAboutChange", {type}); });
}

QString Session::addModel(const QString& name, ZoEffectModel* model)
{
    m_models[name].reset(model);
    m_model = model;
    listen(name, *model);
    return QString("%1 types").arg(model->childCount("effect root"));
}

ZoEffectModel& Session::model(const QString& name)
{
    const auto found = m_models.find(name);
    if (found == m_models.end())
        Words(name).fail();
    return *found->second;
}

/// TYPE POS of the model in use; "null" is no node.
Node* Session::node(Words& words) const
{
    if (words.skips("null"))
        return nullptr;
    const QString type = words.word();
    return m_model->getDataItem(type, words.number());
}

/// Texts are measured into their items and drawn with what fonts there are: of a picture with text only the size is
/// told, and all texts count as equally large afterwards. A session asks for the size alone where images are scaled by
/// any factor: on 32-bit x86 Qt computes with more digits, and takes another row or column of an image now and then.
QString Session::getWatermark(int width, int height, bool honourIgnore, bool onlySize)
{
    struct Text {
        Node* item;
        QVariant width;
    };
    QVector<Text> texts;
    bool drawsText = false;
    const Node* typeNode = m_model->getDataItem("Watermark", -1);
    for (int row = 0; typeNode && row < typeNode->childCount(); ++row) {
        Node* item = typeNode->child(row);
        if (!item->data(QString("wm_istextwatermark")).toBool())
            continue;
        texts.append({item, item->data(widthKey)});
        drawsText |= item->checkState() == 2 && !item->data(QString("wm_textcontent")).toString().isEmpty();
        item->setData(widthKey, notMeasured);
    }
    m_measures = true;
    const QPixmap picture = m_model->getWatermark(width, height, honourIgnore);
    m_measures = false;
    QString result = exact(picture);
    if (!picture.isNull() && (drawsText || onlySize))
        result = QString("%1 x %2").arg(picture.width()).arg(picture.height()) + (drawsText ? " with text" : "");
    for (const Text& text : texts) {
        if (text.item->data(widthKey) == QVariant(notMeasured)) {
            if (text.width.isValid())
                text.item->setData(widthKey, text.width);
            else
                text.item->delData(widthKey);
            continue;
        }
        result += QString(", item %1 measured").arg(text.item->childNumber());
        text.item->setData(widthKey, textWidth);
        text.item->setData(heightKey, textHeight);
    }
    return result;
}

void Session::addConstruction()
{
    m_operations["model"] = [this](Words& w) {
        const QString name = w.word();
        return addModel(name, new ZoEffectModel);
    };
    m_operations["modelOf"] = [this](Words& w) {
        const QString name = w.word();
        return addModel(name, new ZoEffectModel(w.texts()));
    };
    m_operations["modelOfOne"] = [this](Words& w) {
        const QString name = w.word();
        const QString type = w.word();
        return addModel(name, new ZoEffectModel(type, w.properties()));
    };
    m_operations["modelCopied"] = [this](Words& w) {
        const QString name = w.word();
        return addModel(name, new ZoEffectModel(model(w.word())));
    };
    m_operations["modelUnderParent"] = [this](Words& w) {
        const QString name = w.word();
        return addModel(name, new ZoEffectModel(model(w.word()), this));
    };
    m_operations["use"] = [this](Words& w) {
        m_model = &model(w.word());
        return QString();
    };
    m_operations["assign"] = [this](Words& w) {
        *m_model = model(w.word());
        return QString();
    };
    m_operations["createItems"] = [this](Words& w) {
        m_model->createItems(w.texts());
        return QString();
    };
    m_operations["InitZoeffectData"] = [this](Words& w) {
        m_model->InitZoeffectData(node(w));
        return QString();
    };
    m_operations["InitSubItemData"] = [this](Words& w) {
        Node* item = node(w);
        const EffectControlItem* record = ZoEffectModel::findOriItem(w.word(), ZoEffectModel::s_EffectItems);
        m_model->InitSubItemData(item, record ? record->subItems : nullptr);
        return QString();
    };
    m_operations["findOriItem"] = [](Words& w) {
        const EffectControlItem* record = ZoEffectModel::findOriItem(w.word(), ZoEffectModel::s_EffectItems);
        return record ? QString(record->name) : QString("null");
    };
    m_operations["InitEffectModel"] = [](Words& w) {
        ZoEffectModel::InitEffectModel(w.word() == "null" ? nullptr : hostCatalogue());
        return QString();
    };
    m_operations["editByUser"] = [this](Words&) { return exact(m_model->editByUser()); };
    m_operations["editByDefault"] = [this](Words&) { return exact(m_model->editByDefault()); };
    m_operations["resetEditByDefaultFlag"] = [this](Words&) {
        m_model->resetEditByDefaultFlag();
        return QString();
    };
}

void Session::addValues()
{
    m_operations["findDataItem"] = [this](Words& w) {
        if (w.skips("null"))
            return exact(w.ended() ? m_model->findDataItem(nullptr, "Crop")
                                   : m_model->findDataItem(nullptr, "Crop", w.number()));
        return exact(node(w));
    };
    m_operations["childCount"] = [this](Words& w) { return QString::number(m_model->childCount(w.word())); };
    m_operations["data"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        return exact(m_model->data(w.word(), type, pos));
    };
    m_operations["setData"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        const QString key = w.word();
        return exact(m_model->setData(key, w.value(), type, pos));
    };
    m_operations["defaultValue"] = [](Words& w) {
        const QString type = w.word();
        return exact(ZoEffectModel::defaultValue(w.word(), type));
    };
    m_operations["setCurrentItem"] = [this](Words& w) {
        m_model->setCurrentItem(w.word());
        return QString();
    };
    m_operations["setCurrentSubItem"] = [this](Words& w) {
        const QString type = w.word();
        m_model->setCurrentSubItem(type, w.number());
        return QString();
    };
    m_operations["beginChange"] = [this](Words& w) {
        m_model->beginChange(w.word());
        return QString();
    };
    m_operations["endChanged"] = [this](Words& w) {
        m_model->endChanged(w.word());
        return QString();
    };
    m_operations["blockSignals"] = [this](Words& w) { return exact(m_model->blockSignals(w.truth())); };
}

void Session::addLists()
{
    m_operations["insertDataItem"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        return exact(m_model->insertDataItem(type, w.properties(), pos));
    };
    m_operations["addDataItem"] = [this](Words& w) {
        const QString type = w.word();
        return exact(m_model->addDataItem(type, w.properties()));
    };
    m_operations["addDataItemEx"] = [this](Words& w) {
        const QString type = w.word();
        const bool asChild = w.truth();
        return exact(m_model->addDataItemEx(type, w.properties(), asChild));
    };
    m_operations["delDataItem"] = [this](Words& w) {
        const QString type = w.word();
        return exact(m_model->delDataItem(type, w.number()));
    };
    m_operations["changeDataItemPos"] = [this](Words& w) {
        const QString type = w.word();
        const int to = w.number();
        return exact(m_model->changeDataItemPos(type, to, w.number()));
    };
    m_operations["replaceData"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        return exact(m_model->replaceData(type, pos, w.properties()));
    };
    // TYPE POS MODEL TYPE POS: the node at the end is the source.
    m_operations["replaceDataBy"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        const Node* source = nullptr;
        if (!w.skips("null")) {
            const ZoEffectModel& from = model(w.word());
            const QString fromType = w.word();
            source = from.getDataItem(fromType, w.number());
        }
        m_model->replaceData(type, pos, source);
        return QString();
    };
    m_operations["replaceItemDataProperty"] = [this](Words& w) {
        const QString type = w.word();
        m_model->replaceItemDataProperty(type, w.properties());
        return QString();
    };
    m_operations["resetDataItem"] = [this](Words& w) {
        const QString type = w.word();
        return exact(m_model->resetDataItem(type, w.number()));
    };
    m_operations["resetAllEffect"] = [this](Words&) {
        m_model->resetAllEffect();
        return QString();
    };
    m_operations["applyDataTo"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        m_model->applyDataTo(type, pos, w.number());
        return QString();
    };
    m_operations["applySomePropertytoOther"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        m_model->applySomePropertytoOther(type, pos, w.number());
        return QString();
    };
}

void Session::addSelection()
{
    m_operations["selectOnlyOneItem"] = [this](Words& w) {
        m_model->selectOnlyOneItem(w.word());
        return QString();
    };
    m_operations["selectItemByKey"] = [this](Words& w) {
        const QString type = w.word();
        const QString key = w.word();
        m_model->selectItemByKey(type, key, w.value());
        return QString();
    };
    m_operations["selectItemByKeyEx"] = [this](Words& w) {
        const QString type = w.word();
        const QString key = w.word();
        m_model->selectItemByKeyEx(type, key, w.texts());
        return QString();
    };
    m_operations["getItemIndexByKeyValue"] = [this](Words& w) {
        const QString type = w.word();
        const QString key = w.word();
        return QString::number(m_model->getItemIndexByKeyValue(type, key, w.value()));
    };
    m_operations["haveSameItem"] = [this](Words& w) {
        const QString type = w.word();
        const QString key = w.word();
        return exact(m_model->haveSameItem(type, key, w.value()));
    };
    m_operations["getSelectItem"] = [this](Words& w) {
        const QString type = w.word();
        Node* selected = m_model->getSelectItem(type);
        QString result = exact(selected);
        if (type == "Audio" && selected) { // A container of the caller's, with the model's tracks in it.
            while (selected->takeAt(0)) {
            }
            delete selected;
        }
        return result;
    };
    m_operations["tracks"] = [this](Words&) {
        return QString("subtitle %1 custom %2 embedded %3, audio %4 custom %5 embedded %6")
            .arg(QString::number(m_model->getEmbededSutitleID()), exact(m_model->useCustomSubtitle()),
                 exact(m_model->useEmbededSubtitle()), QString::number(m_model->getEmbededAudioID()),
                 exact(m_model->useCustomAudio()), exact(m_model->useEmbededAudio()));
    };
    m_operations["isForAudioEffect"] = [this](Words&) { return exact(m_model->isForAudioEffect()); };
    m_operations["getValidAudioEffectItem"] = [this](Words&) { return exact(m_model->getValidAudioEffectItem()); };
    m_operations["refreshCurPlayData"] = [this](Words& w) {
        m_model->refreshCurPlayData(w.number());
        return QString();
    };
}

void Session::addGeometry()
{
    m_operations["setVideoSize"] = [this](Words& w) {
        const int width = w.number();
        m_model->setVideoSize(width, w.number());
        return QString();
    };
    m_operations["baseSize"] = [this](Words&) { return exact(QVariant(m_model->baseSize())); };
    m_operations["adjustEffectInfo"] = [this](Words& w) {
        const int width = w.number();
        m_model->adjustEffectInfo(width, w.number());
        return QString();
    };
    m_operations["adjustEffectItem"] = [this](Words& w) {
        Node* item = node(w);
        const int newWidth = w.number();
        const int newHeight = w.number();
        const int oldWidth = w.number();
        m_model->adjustEffectItem(item, newWidth, newHeight, oldWidth, w.number());
        return QString();
    };
    m_operations["isCroped"] = [this](Words&) { return exact(m_model->isCroped(1, 2)); };
    m_operations["cropData"] = [this](Words&) {
        const CropData crop = m_model->cropData();
        return QString("%1 %2 %3 %4 %5 %6")
            .arg(QString::number(crop.left), QString::number(crop.top), QString::number(crop.width),
                 QString::number(crop.height), QString::number(crop.reserved), exact(crop.valid));
    };
    m_operations["adjustWatermarkPos"] = [this](Words& w) {
        m_model->adjustWatermarkPos(node(w));
        return QString();
    };
    m_operations["getWatermark"] = [this](Words& w) {
        const int width = w.number();
        const int height = w.number();
        const bool honourIgnore = w.truth();
        return getWatermark(width, height, honourIgnore, w.skips("size"));
    };
    m_operations["getImage"] = [this](Words& w) {
        const QString path = w.word();
        const QByteArray format = w.ended() ? QByteArray() : w.word().toLatin1();
        return exact(*m_model->getImage(path, w.ended() && format.isEmpty() ? nullptr : format.constData()));
    };
    // A file NAME in the folder of the session: WIDTH x HEIGHT pixels, all different, half of them translucent.
    m_operations["picture"] = [](Words& w) {
        const QString name = w.word();
        const int width = w.number();
        const int height = w.number();
        QImage image(width, height, QImage::Format_ARGB32);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, qRgba(x * 7 % 256, y * 11 % 256, (x + y) * 5 % 256, (x + y) % 2 == 0 ? 255 : 85));
        }
        return exact(image.save(name));
    };
}

void Session::addDefaults()
{
    m_operations["SingleDataIsDefault"] = [this](Words& w) {
        const QString type = w.word();
        const int pos = w.number();
        return exact(m_model->SingleDataIsDefault(type, w.word(), pos));
    };
    m_operations["dataIsDefault"] = [this](Words& w) { return exact(m_model->dataIsDefault(w.word())); };
    m_operations["FrameEffectIsDefault"] = [this](Words&) { return exact(m_model->FrameEffectIsDefault()); };
    m_operations["hasRealEffect"] = [this](Words&) { return exact(m_model->hasRealEffect()); };
    m_operations["getCurrentFrameEffects"] = [this](Words&) { return exact(m_model->getCurrentFrameEffects()); };
    m_operations["hasCustomDefault"] = [this](Words& w) { return exact(m_model->hasCustomDefault(w.word())); };
    m_operations["removeCustomDefault"] = [this](Words& w) {
        m_model->removeCustomDefault(w.word());
        return QString();
    };
    m_operations["customDefaultVal"] = [](Words& w) {
        const QString type = w.word();
        return exact(ZoEffectModel::customDefaultVal(w.word(), type));
    };
    m_operations["saveAsCustomDefault"] = [this](Words& w) {
        const QString type = w.word();
        m_model->saveAsCustomDefault(type, w.number());
        return QString();
    };
    m_operations["getCustomDefaultVal"] = [this](Words& w) {
        Node* item = node(w);
        const QString type = w.word();
        m_model->getCustomDefaultVal(item, type, w.truth());
        return QString();
    };
    m_operations["AdjustFramEffectsByCustomDefault"] = [this](Words&) {
        m_model->AdjustFramEffectsByCustomDefault();
        return QString();
    };
    m_operations["getItemPos"] = [this](Words& w) {
        const Node* parent = node(w);
        return QString::number(m_model->getItemPos(parent, w.word()));
    };
    m_operations["saveAsCustomDefaultVal"] = [](Words& w) {
        const QString type = w.word();
        ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, w.properties());
        return QString();
    };
    m_operations["customDefaults"] = [](Words& w) {
        return exact(ZoEffectItemDefaultValMgr::getInstance()->getCustomDefaultVal(w.word()));
    };
    m_operations["supportTypes"] = [](Words&) { return ZoEffectItemDefaultValMgr::supportTypes().join(", "); };
}

// What a host does to the nodes themselves.
void Session::addNodes()
{
    m_operations["nodeSetData"] = [this](Words& w) {
        Node* item = node(w);
        const QString key = w.word();
        const QVariant value = w.value();
        if (item)
            item->setData(key, value);
        return exact(item != nullptr);
    };
    m_operations["nodeDelData"] = [this](Words& w) {
        Node* item = node(w);
        const QString key = w.word();
        if (item)
            item->delData(key);
        return exact(item != nullptr);
    };
    m_operations["nodeSetCheckState"] = [this](Words& w) {
        Node* item = node(w);
        const int state = w.number();
        if (item)
            item->setCheckState(state);
        return exact(item != nullptr);
    };
}

void Session::run(const QString& line)
{
    say("> " + line);
    Words words(line);
    const auto operation = m_operations.find(words.word());
    if (operation == m_operations.end())
        words.fail();
    const QString result = operation->second(words);
    if (!words.ended())
        words.fail();
    if (!result.isEmpty())
        say("= " + result);
    for (const QString& signal : std::as_const(m_signals))
        say("! " + signal);
    m_signals.clear();
    const QList<int> events = logcapture::takeEvents();
    for (const int event : events)
        say(QString("# %1").arg(event));
    const auto writes = TestApplication::instance()->pref.takeWrites().size();
    if (writes > 0)
        say(QString("@ %1").arg(writes));
}

void Session::sayEnd() const
{
    for (const auto& [name, model] : m_models) {
        say("tree " + name);
        sayTree(*model->getDataItem("effect root", -1), "  ");
    }
    say("store");
    const Properties& entries = TestApplication::instance()->pref.entries;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        say("  " + it.key() + ": " + exact(it.value()));
}

} // namespace

int main(int argc, char** argv)
{
    const TestFolders folders;
    const TestApplication application(argc, argv);
    QFile file(QCoreApplication::arguments().value(1));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "usage: replay SESSION\n");
        return 2;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    QDir::setCurrent(folders.temporary()); // The pictures of the session go there.
    ZoEffectModel::InitEffectModel(hostCatalogue());
    Session session;
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith('#'))
            session.run(line);
    }
    session.sayEnd();
    return 0;
}

#include "replay.moc"
