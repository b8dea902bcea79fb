// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "commandline.h"

#include <algorithm>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <QFileInfo>
#include <QHash>
#include <QSize>

#include <zokit/outputoptions.h>
#include <zokit/shell.h>

#include "words.h"

namespace zoconvert {

namespace {

/// A word as text; of bytes that are no UTF-8 the hexadecimal form, so that it can be shown.
QString textOf(const QByteArray& bytes, bool* isUtf8)
{
    const QString text = QString::fromUtf8(bytes);
    *isUtf8 = text.toUtf8() == bytes;
    if (*isUtf8)
        return text;
    QString shown;
    constexpr unsigned char firstBeyondAscii = 0x80;
    for (const char letter : bytes) {
        const auto byte = static_cast<unsigned char>(letter);
        shown +=
            byte < firstBeyondAscii ? QString(QLatin1Char(letter)) : QStringLiteral("\\x") + QString::number(byte, 16);
    }
    return shown;
}

QString dashed(const Option& option)
{
    return QStringLiteral("--") + option.name;
}

/// That \a option was given without a value, with what it takes.
QString valueMissing(const Option& option, const QString& typed)
{
    const QString choices = option.choices.join(QStringLiteral(", "));
    return say(Say::ValueMissing, {typed, choices.isEmpty() ? option.value : choices});
}

/// Arguments in the form in which the parser below understands all of them.
struct Prepared {
    std::vector<std::string> arguments;
    QString error;
};

/// "--text=" becomes two arguments, since the parser would take the next one for the value; a flag with a value and an
/// option without one are refused here, with the words that were typed.
Prepared prepared(const QVector<QByteArray>& arguments, const QVector<Option>& options)
{
    Prepared result;
    const auto find = [&](const QString& name) {
        return std::find_if(options.cbegin(), options.cend(), [&](const Option& option) {
            return name == dashed(option) || (!option.letter.isEmpty() && name == QLatin1Char('-') + option.letter);
        });
    };
    for (int i = 0; i < arguments.size(); ++i) {
        const QByteArray& argument = arguments.at(i);
        if (argument == "--") {
            for (; i < arguments.size(); ++i)
                result.arguments.push_back(arguments.at(i).toStdString());
            break;
        }
        const auto equals = argument.startsWith("--") ? argument.indexOf('=') : -1;
        const QByteArray name = equals < 0 ? argument : argument.left(equals);
        const auto option = find(QString::fromUtf8(name));
        result.arguments.push_back(name.toStdString());
        if (option == options.cend()) {
            result.arguments.back() = argument.toStdString();
        } else if (option->isFlag()) {
            if (equals >= 0)
                result.error = say(Say::NoValue, {QString::fromUtf8(name)});
        } else if (equals >= 0) {
            result.arguments.push_back(argument.mid(equals + 1).toStdString());
        } else if (i + 1 < arguments.size()) {
            result.arguments.push_back(arguments.at(++i).toStdString());
        } else {
            result.error = valueMissing(*option, QString::fromUtf8(name));
        }
        if (!result.error.isEmpty())
            break;
    }
    return result;
}

/// Takes the results of the parser over, in the order of the command line.
class Reader {
public:
    explicit Reader(const Command& command) : m_command(command), m_options(optionsOf(command))
    {
        m_app.set_help_flag();
        m_app.allow_extras(); // Words, too: an option for them would take "[a]" apart.
        for (int i = 0; i < m_options.size(); ++i) {
            const Option& option = m_options.at(i);
            if (option.name == QLatin1String("help"))
                continue;
            QString words = dashed(option);
            if (!option.letter.isEmpty())
                words.prepend(QLatin1Char('-') + option.letter + QLatin1Char(','));
            const std::string names = words.toStdString();
            CLI::Option* added = option.isFlag() ? m_app.add_flag(names) : m_app.add_option(names)->expected(1);
            added->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
            m_known.insert(added, i);
        }
        m_summary = m_app.add_flag("-h");
        m_help = m_app.add_flag("--help");
    }

    Parsed read(const QVector<QByteArray>& arguments)
    {
        m_parsed.command = m_parsed.invocation.command = &m_command;
        const Prepared ready = prepared(arguments, m_options);
        if (!ready.error.isEmpty())
            return refused(ready.error);
        try {
            m_app.parse(std::vector<std::string>(ready.arguments.crbegin(), ready.arguments.crend()));
        } catch (const CLI::Error& error) {
            return refused(QString::fromUtf8(error.what()));
        }
        takeResults();
        if (m_parsed.wish == Parsed::Summary || m_parsed.wish == Parsed::Help)
            return m_parsed;
        takeWords();
        if (m_parsed.error.isEmpty())
            countWords();
        m_parsed.wish = m_parsed.error.isEmpty() ? Parsed::Run : Parsed::Nonsense;
        return m_parsed;
    }

private:
    Parsed refused(const QString& error)
    {
        m_parsed.wish = Parsed::Nonsense;
        m_parsed.error = error;
        return m_parsed;
    }

    void takeResults()
    {
        QHash<const CLI::Option*, std::size_t> taken;
        for (const CLI::Option* option : m_app.parse_order()) {
            if (option == m_summary || option == m_help) {
                m_parsed.wish = option == m_summary ? Parsed::Summary : Parsed::Help;
                continue;
            }
            const QByteArray bytes = QByteArray::fromStdString(option->results().at(taken[option]++));
            bool isUtf8 = false;
            const QString value = textOf(bytes, &isUtf8);
            take(m_options.at(m_known.value(option)), value, isUtf8);
        }
    }

    void take(const Option& option, const QString& value, bool isUtf8)
    {
        Invocation& invocation = m_parsed.invocation;
        const auto isIn = [&](const QVector<Option>& options) {
            return std::any_of(options.cbegin(), options.cend(),
                               [&](const Option& one) { return one.name == option.name; });
        };
        if (option.name == QLatin1String("existing")) { // "--overwrite" is short for it: the last one holds.
            invocation.own.remove(QStringLiteral("overwrite"));
            invocation.output.remove(QStringLiteral("overwrite"));
        }
        if (!isUtf8 && m_parsed.error.isEmpty())
            m_parsed.error = say(Say::OptionNotUtf8, {dashed(option) + QLatin1Char(' ') + value});
        else if (value.isEmpty() && !option.isFlag() && option.name != QLatin1String("text")) // Of a variable not set.
            m_parsed.error = valueMissing(option, dashed(option));
        else if (isIn(ownOf(m_command)))
            invocation.own.insert(option.name, option.isFlag() ? QString() : checked(option, value).toString());
        else if (isIn(editsOf(m_command)))
            invocation.edits.append({option.name, option.isFlag() ? QString() : value});
        else
            invocation.output.insert(option.name, checked(option, value));
    }

    /// An output option's value in its type; what is none becomes the error.
    QVariant checked(const Option& option, const QString& value)
    {
        const zokit::OutputOption* output = zokit::outputOption(option.name);
        const auto hides = [&](const Option& own) { return own.name == option.name; };
        const QVector<Option> own = ownOptions();
        if (!output || (m_command.own.contains(option.name) && std::any_of(own.cbegin(), own.cend(), hides)))
            return value;
        const zokit::ReadValue read = zokit::readValue(output->property, value, QSize(), dashed(option));
        if (!read.error.isEmpty() && m_parsed.error.isEmpty())
            m_parsed.error = read.error.text();
        return read.value;
    }

    /// What is left are words and, as far as "--", options that nobody knows.
    void takeWords()
    {
        Invocation& invocation = m_parsed.invocation;
        bool mayBeOption = true;
        for (const std::string& rest : m_app.remaining()) {
            bool isUtf8 = false;
            const QString word = textOf(QByteArray::fromStdString(rest), &isUtf8);
            if (mayBeOption && word == QLatin1String("--")) {
                mayBeOption = false;
            } else if (mayBeOption && word.size() > 1 && word.startsWith(QLatin1Char('-'))) {
                nameUnknown(word.section(QLatin1Char('='), 0, 0));
            } else if (word.isEmpty() && m_parsed.error.isEmpty()) {
                m_parsed.error = say(Say::EmptyWord);
            } else {
                invocation.words.append(word);
                if (!isUtf8)
                    invocation.notUtf8.append(word);
            }
        }
    }

    void nameUnknown(const QString& word)
    {
        QStringList names;
        for (const Option& option : m_options)
            names.append(dashed(option));
        if (m_parsed.error.isEmpty())
            m_parsed.error =
                say(Say::UnknownOption, {QString::fromLatin1(m_command.name), word, zokit::nearest(word, names)});
    }

    void countWords()
    {
        const QStringList& words = m_parsed.invocation.words;
        const QString name = QString::fromLatin1(m_command.name);
        const QString usage = name + QLatin1Char(' ') + QString::fromLatin1(m_command.usage);
        if (words.size() < m_command.fewest)
            m_parsed.error = say(Say::TooFewWords, {usage});
        else if (m_command.most >= 0 && words.size() > m_command.most)
            m_parsed.error = say(Say::TooManyWords, {words.at(m_command.most), usage});
        else if (!m_command.first.isEmpty() && !m_command.first.contains(words.first()))
            m_parsed.error = say(Say::UnknownChoice, {name, words.first(), m_command.first.join(QStringLiteral(", ")),
                                                      zokit::nearest(words.first(), m_command.first)});
    }

    const Command& m_command;
    const QVector<Option> m_options;
    CLI::App m_app;
    QHash<const CLI::Option*, int> m_known;
    const CLI::Option* m_summary = nullptr;
    const CLI::Option* m_help = nullptr;
    Parsed m_parsed;
};

/// \a file as it can be pasted into a shell: one word, and no option.
QString pasted(const QString& file)
{
    return zokit::shellWord(file.startsWith(QLatin1Char('-')) ? QStringLiteral("./") + file : file);
}

QString commandFor(const QString& file)
{
    const bool isSettings = file.endsWith(QLatin1String(".json"));
    return isSettings || !findCommand(QStringLiteral("convert")) ? QStringLiteral("show") : QStringLiteral("convert");
}

} // namespace

Parsed parse(const QVector<QByteArray>& arguments, const Command& command)
{
    return Reader(command).read(arguments);
}

Parsed parse(const QVector<QByteArray>& arguments)
{
    // "help COMMAND", as many a program knows it.
    QVector<QByteArray> words = arguments;
    while (words.value(0) == "help")
        words.removeFirst();
    if (words.size() < arguments.size())
        words.append("-h");

    Parsed parsed;
    bool isUtf8 = false;
    const QString first = words.isEmpty() ? QString() : textOf(words.first(), &isUtf8);
    const auto wish = [&](Parsed::Wish what) {
        parsed.wish = what;
        return parsed;
    };
    if (const Command* command = findCommand(first))
        return parse(words.mid(1), *command);
    if (first == QLatin1String("-h"))
        return wish(Parsed::Summary);
    if (first == QLatin1String("--help"))
        return wish(Parsed::Help);
    if (first == QLatin1String("--version"))
        return wish(Parsed::Version);
    if (words.isEmpty())
        parsed.error = say(Say::NoCommand);
    else if (isUtf8 && QFileInfo::exists(first))
        parsed.error = say(Say::FileForCommand, {first, commandFor(first), pasted(first)});
    else if (first.startsWith(QLatin1Char('-')))
        parsed.error = say(Say::CommandFirst, {first});
    else
        parsed.error = say(Say::UnknownCommand, {first, zokit::nearest(first, commandNames())});
    return parsed;
}

} // namespace zoconvert
