// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace zokit {

/// A filter graph while it is written: one chain that grows, and others that part from it and join it again.
class Chain {
public:
    /// \a name begins each label, so that graphs of different names can stand in one text.
    explicit Chain(const QString& name) : m_name(name) {}

    /// Begins a chain with what stands at \a labels ("[0:1]"); empty: the unnamed input.
    void begin(const QString& labels);
    void add(const QString& filter);
    /// Ends the chain; the labels of its outputs, in brackets.
    QStringList cut(int outputs = 1);
    /// A label that stands nowhere else, without brackets.
    QString newLabel();
    /// Ends the chain and the graph.
    QString endedAs(const QString& label) const;
    QString text() const { return m_text; }
    bool isEmpty() const { return m_text.isEmpty(); }

private:
    QString m_name;
    QString m_text;
    int m_labels = 0;
    bool m_afterFilter = false;
};

/// A number as filters read it: at most six digits behind the point, no more than it takes.
QString filterNumber(double number);
/// \a text as the value of an option in a filter graph, whatever letters it has.
QString filterEscaped(const QString& text);

} // namespace zokit
