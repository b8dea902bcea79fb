// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "completions.h"

#include <zokit/properties.h>

#include "commands.h"
#include "words.h"

namespace zoconvert {

namespace {

const QString blank = QStringLiteral(" ");

/// "Color:bcs_contrast=" and "Watermark:0:wm_fontsize=", all that can be set.
QStringList addresses()
{
    QStringList result;
    for (const QString& type : zokit::effectTypes())
        result.append(type + QStringLiteral(":selected="));
    for (const zokit::Property& property : zokit::properties()) {
        const bool isOfType = property.suits.testFlag(zokit::Suit::Type);
        if (property.control != zokit::Control::None)
            result.append(property.type + QLatin1String(isOfType ? ":" : ":0:") + property.key + QLatin1Char('='));
    }
    for (const Option& option : outputs())
        result.append(QStringLiteral("Output:%1=").arg(option.name));
    return result;
}

QStringList corners()
{
    return QStringLiteral("top-left top top-right left centre right bottom-left bottom bottom-right").split(blank);
}

QStringList items()
{
    return zokit::effectTypes() + QStringList{QStringLiteral("Output"), QStringLiteral("Tracks")};
}

QString spelled(const QVector<Option>& options)
{
    QStringList names;
    for (const Option& option : options) {
        names.append(QStringLiteral("--") + option.name);
        if (!option.letter.isEmpty())
            names.append(QLatin1Char('-') + option.letter);
    }
    return names.join(blank);
}

/// What bash does for a value or a word of the kind.
QString bashOf(Takes takes, const QStringList& choices)
{
    switch (takes) {
    case Takes::File:
        return QStringLiteral("_zoconvert_files");
    case Takes::Settings:
        return QStringLiteral("_zoconvert_presets; _zoconvert_files");
    case Takes::Folder:
        return QStringLiteral("_zoconvert_files -d");
    case Takes::Preset:
        return QStringLiteral("_zoconvert_presets; _zoconvert_files");
    case Takes::Address:
        return QStringLiteral("_zoconvert_words '%1'; compopt -o nospace").arg(addresses().join(blank));
    case Takes::Items:
        return QStringLiteral("_zoconvert_words '%1'").arg(items().join(blank));
    case Takes::Type:
        return QStringLiteral("_zoconvert_words '%1'; _zoconvert_files").arg(zokit::effectTypes().join(blank));
    case Takes::Corner:
        return QStringLiteral("_zoconvert_words '%1'").arg(corners().join(blank));
    case Takes::Choice:
        return QStringLiteral("_zoconvert_words '%1'").arg(choices.join(blank));
    case Takes::Anything:
    case Takes::Nothing:
        break;
    }
    return QStringLiteral(":");
}

constexpr char bashHead[] = R"bash(# bash completion for zoconvert(1)
# Made from the tables of the program.

_zoconvert_words() {
    local word
    for word in $1; do
        [[ $word == "$cur"* ]] && COMPREPLY+=("${word#"$given"}")
    done
}

_zoconvert_presets() {
    local name
    while IFS= read -r name; do
        [[ $name == "$cur"* ]] && COMPREPLY+=("$(printf %q "$name")")
    done < <(zoconvert preset list 2> /dev/null)
}

_zoconvert_files() {
    local name
    compopt -o filenames
    while IFS= read -r name; do
        COMPREPLY+=("$name")
    done < <(compgen "${1:--f}" -- "$cur")
}

_zoconvert() {
    local i word cur prev='' glued='' given
    local -a typed=()
    COMPREPLY=()
    # The shell takes addresses apart at ":" and "=".
    for ((i = 1; i <= COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if ((${#typed[@]} > 0)) && [[ -n $glued || $word == [:=]* ]]; then
            typed[-1]+=$word
        else
            typed+=("$word")
        fi
        glued=''
        [[ $word == *[:=] ]] && glued=1
    done
    cur=${typed[-1]}
    ((${#typed[@]} > 1)) && prev=${typed[-2]}
    if [[ $cur == --*=* ]]; then
        prev=${cur%%=*}
        cur=${cur#*=}
    fi
    given=${cur%"${cur##*[:=]}"}
)bash";

/// A text within single quotes of a shell.
QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

/// Between the colons of zsh's _arguments and _describe.
QString zshText(QString text)
{
    return text.replace(QLatin1Char(':'), QLatin1String("\\:"));
}

/// Between brackets, which end at the first one.
QString zshHelp(QString text)
{
    for (const char letter : {'\\', '[', ']'})
        text.replace(QLatin1Char(letter), QStringLiteral("\\") + QLatin1Char(letter));
    return zshText(text);
}

QString zshOf(Takes takes, const QStringList& choices)
{
    switch (takes) {
    case Takes::File:
        return QStringLiteral("_files");
    case Takes::Settings:
    case Takes::Preset:
        return QStringLiteral("_zoconvert_presets");
    case Takes::Folder:
        return QStringLiteral("_files -/");
    case Takes::Address:
        return QStringLiteral("_zoconvert_addresses");
    case Takes::Items:
        return QStringLiteral("(%1)").arg(items().join(blank));
    case Takes::Type:
        return QStringLiteral("_zoconvert_types");
    case Takes::Corner:
        return QStringLiteral("(%1)").arg(corners().join(blank));
    case Takes::Choice:
        return QStringLiteral("(%1)").arg(choices.join(blank));
    case Takes::Anything:
    case Takes::Nothing:
        break;
    }
    return blank;
}

QString zshOption(const Option& option)
{
    const QString value =
        option.isFlag() ? QString()
                        : QStringLiteral(":%1:%2").arg(zshText(option.value), zshOf(option.takes, option.choices));
    const QString rest = QStringLiteral("[%1]%2").arg(zshHelp(option.help), value);
    const QString glued = option.isFlag() ? QString() : QStringLiteral("="); // The value may stand behind it, or next.
    QString result = QLatin1String("      ") + quoted(QStringLiteral("*--%1%2%3").arg(option.name, glued, rest))
                     + QLatin1String(" \\\n");
    if (!option.letter.isEmpty())
        result += QLatin1String("      ") + quoted(QStringLiteral("*-%1%2").arg(option.letter, rest))
                  + QLatin1String(" \\\n");
    return result;
}

QString zshWords(const Command& command)
{
    QString result;
    if (!command.first.isEmpty())
        result = QLatin1String("      ") + quoted(QStringLiteral("1: :(%1)").arg(command.first.join(blank)))
                 + QLatin1String(" \\\n");
    return result + QLatin1String("      ") + quoted(QStringLiteral("*: :%1").arg(zshOf(command.words, {})));
}

} // namespace

QString bashCompletions()
{
    QString result = QString::fromLatin1(bashHead);
    result += QStringLiteral("    if ((${#typed[@]} == 1)); then\n        _zoconvert_words '%1 help --help --version'\n"
                             "        return\n    fi\n    case ${typed[0]}:$prev in\n")
                  .arg(commandNames().join(blank));
    QString words =
        QStringLiteral("    help)\n        _zoconvert_words '%1'\n        ;;\n").arg(commandNames().join(blank));
    for (const Command& command : commands()) {
        const QString name = QString::fromLatin1(command.name);
        for (const Option& option : optionsOf(command)) {
            if (option.isFlag())
                continue;
            const QString letter =
                option.letter.isEmpty() ? QString() : QStringLiteral("%1:-%2 | ").arg(name, option.letter);
            result += QStringLiteral("    %1%2:--%3) %4; return ;;\n")
                          .arg(letter, name, option.name, bashOf(option.takes, option.choices));
        }
        words += QStringLiteral("    %1)\n        if [[ $cur == -* ]]; then\n            _zoconvert_words '%2'\n")
                     .arg(name, spelled(optionsOf(command)));
        if (!command.first.isEmpty())
            words += QStringLiteral("        elif ((${#typed[@]} == 2)); then\n            _zoconvert_words '%1'\n")
                         .arg(command.first.join(blank));
        words +=
            QStringLiteral("        else\n            %1\n        fi\n        ;;\n").arg(bashOf(command.words, {}));
    }
    result += QStringLiteral("    esac\n    case ${typed[0]} in\n") + words;
    return result + QStringLiteral("    esac\n}\ncomplete -F _zoconvert zoconvert\n");
}

QString zshCompletions()
{
    QString result = QStringLiteral("#compdef zoconvert\n# Made from the tables of the program.\n\n");
    result += QStringLiteral("_zoconvert_presets() {\n  local -a names\n"
                             "  names=(${(f)\"$(zoconvert preset list 2> /dev/null)\"})\n"
                             "  compadd -a names\n  _files\n}\n\n");
    result += QStringLiteral("_zoconvert_addresses() {\n  compadd -S '' -- %1\n}\n\n").arg(addresses().join(blank));
    result +=
        QStringLiteral("_zoconvert_types() {\n  compadd -- %1\n  _files\n}\n\n").arg(zokit::effectTypes().join(blank));
    result += QStringLiteral("_zoconvert() {\n  local -a commands\n  commands=(\n");
    for (const Command& command : commands())
        result += QLatin1String("    ")
                  + quoted(QString::fromLatin1(command.name) + QLatin1Char(':') + zshText(translated(command.summary)))
                  + QLatin1Char('\n');
    result += QStringLiteral("  )\n  if ((CURRENT == 2)); then\n    _describe command commands\n"
                             "    compadd -- help --help --version\n    return\n  fi\n"
                             "  local command=$words[2]\n  shift words\n  ((CURRENT--))\n  case $command in\n"
                             "    help)\n      _describe command commands\n      ;;\n");
    for (const Command& command : commands()) {
        result += QStringLiteral("    %1)\n      _arguments \\\n").arg(QString::fromLatin1(command.name));
        for (const Option& option : optionsOf(command))
            result += zshOption(option);
        result += zshWords(command) + QStringLiteral("\n      ;;\n");
    }
    return result + QStringLiteral("  esac\n}\n\n_zoconvert \"$@\"\n");
}

} // namespace zoconvert
