// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "appearance.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QProxyStyle>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStyleOption>
#include <QTranslator>
#include <QWidget>

#include <zokit/message.h>

static void initResource()
{
    Q_INIT_RESOURCE(zoeditor); // A static library's resources are not found by themselves.
}

namespace zoeditor::appearance {

namespace {

const QString themeKey = QStringLiteral("theme");
const QString languageKey = QStringLiteral("language");

QSettings settings()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("zoeffect"),
                     QStringLiteral("zoeditor"));
}

struct Shades {
    QRgb window, base, alternate, button, text, dimmed, disabled, highlight, highlightedText, link;
};

// Texts stand out from what is below them by 4.5 to 1 at least, also those that are dimmed; those that are disabled by
// 3 to 1.
constexpr Shades light{0xffefefef, 0xffffffff, 0xfff5f5f5, 0xffe6e6e6, 0xff1a1a1a,
                       0xff666666, 0xff828282, 0xff1f5fa8, 0xffffffff, 0xff0b57a4};
// Fields are lighter than the window: the outlines, which the style makes darker, stay visible around them.
constexpr Shades dark{0xff2b2c2f, 0xff3d3e43, 0xff36373b, 0xff46474c, 0xffececec,
                      0xffacacb0, 0xff95959a, 0xff336eb0, 0xffffffff, 0xff86b7f0};

QPalette paletteOf(const Shades& shades)
{
    QPalette palette(QColor::fromRgb(shades.button), QColor::fromRgb(shades.window));
    const QPair<QPalette::ColorRole, QRgb> roles[] = {{QPalette::Window, shades.window},
                                                      {QPalette::WindowText, shades.text},
                                                      {QPalette::Base, shades.base},
                                                      {QPalette::AlternateBase, shades.alternate},
                                                      {QPalette::ToolTipBase, shades.alternate},
                                                      {QPalette::ToolTipText, shades.text},
                                                      {QPalette::Text, shades.text},
                                                      {QPalette::Button, shades.button},
                                                      {QPalette::ButtonText, shades.text},
                                                      {QPalette::Highlight, shades.highlight},
                                                      {QPalette::Link, shades.link},
                                                      {QPalette::HighlightedText, shades.highlightedText},
                                                      {QPalette::PlaceholderText, shades.dimmed}};
    for (const auto& [role, shade] : roles)
        palette.setColor(role, QColor::fromRgb(shade));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(shades.disabled));
    return palette;
}

/// Where no desktop says how, Qt leaves dimmed texts without a brush: fields draw them, labels and lists do not.
QPalette systemPalette()
{
    QPalette palette = QApplication::palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QBrush brush = palette.brush(group, QPalette::PlaceholderText);
        if (brush.style() != Qt::NoBrush && brush.color().alpha() > 0)
            continue;
        constexpr int alpha = 153; // 60 % of the text, which is light where the system is dark.
        QColor dimmed = palette.color(group, QPalette::Text);
        dimmed.setAlpha(alpha);
        palette.setColor(group, QPalette::PlaceholderText, dimmed);
    }
    return palette;
}

/// The style with boxes to check whose outline can be seen on every ground, and arrows of trees on a chosen row.
class Style : public QProxyStyle {
public:
    Style() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element == PE_IndicatorBranch && option->state.testFlag(State_Selected)) {
            QStyleOption chosen(*option);
            chosen.palette.setColor(QPalette::WindowText, chosen.palette.color(QPalette::HighlightedText));
            return QProxyStyle::drawPrimitive(element, &chosen, painter, widget);
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element != PE_IndicatorCheckBox)
            return;
        constexpr double half = 0.5; // The middle of a pixel.
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(option->palette.color(QPalette::PlaceholderText));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(option->rect).adjusted(half, half, -half, -half));
        painter->restore();
    }
};

void applyTheme(Theme theme)
{
    static const QPalette system = systemPalette();
    QApplication::setStyle(new Style);
    QApplication::setPalette(theme == Theme::System ? system : paletteOf(theme == Theme::Light ? light : dark));
}

QString qtTranslations()
{
#if QT_VERSION_MAJOR >= 6
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
}

void applyLanguage(const QString& language)
{
    static QPointer<QTranslator> translator;   // The application's child, and gone with it.
    static QPointer<QTranslator> qtTranslator; // Of what Qt says: names of keys, and its own dialogs.
    delete translator.data();
    delete qtTranslator.data();
    const QLocale locale(language);
    QLocale::setDefault(locale);
    zokit::useLanguage(locale);
    translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QStringLiteral(":/zoeditor/zoeditor_%1.qm").arg(language)))
        QCoreApplication::installTranslator(translator);
    qtTranslator = new QTranslator(QCoreApplication::instance());
    if (qtTranslator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), qtTranslations()))
        QCoreApplication::installTranslator(qtTranslator);
}

} // namespace

Theme theme()
{
    const QString word = settings().value(themeKey).toString();
    if (word == QLatin1String("light"))
        return Theme::Light;
    return word == QLatin1String("dark") ? Theme::Dark : Theme::System;
}

void setTheme(Theme theme)
{
    const char* const words[] = {"system", "light", "dark"};
    QSettings store = settings();
    store.setValue(themeKey, QString::fromLatin1(words[static_cast<int>(theme)]));
    applyTheme(theme);
}

QString language()
{
    const QString word = settings().value(languageKey, QLocale::system().name().left(2)).toString();
    return word == QLatin1String("de") ? word : QStringLiteral("en");
}

void setLanguage(const QString& language)
{
    QSettings store = settings();
    store.setValue(languageKey, language);
    applyLanguage(language);
}

void restore()
{
    applyTheme(theme());
    restoreLanguage();
}

void restoreLanguage()
{
    initResource();
    applyLanguage(language());
}

void saveSizes(const QWidget& window)
{
    QSettings kept = settings();
    kept.setValue(window.objectName(), window.parentWidget() ? QVariant(window.size()) : window.saveGeometry());
    for (const QSplitter* splitter : window.findChildren<QSplitter*>())
        kept.setValue(splitter->objectName(), splitter->saveState());
}

void restoreSizes(QWidget* window)
{
    const QSettings kept = settings();
    const QVariant shape = kept.value(window->objectName());
    if (!window->parentWidget())
        window->restoreGeometry(shape.toByteArray());
    else if (const QSize size = shape.toSize(); !size.isEmpty())
        window->resize(size.boundedTo(window->screen()->availableSize().expandedTo(window->parentWidget()->size())));
    for (QSplitter* splitter : window->findChildren<QSplitter*>())
        splitter->restoreState(kept.value(splitter->objectName()).toByteArray());
}

} // namespace zoeditor::appearance
