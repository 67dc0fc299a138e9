#pragma once

#include <QString>

#include <ostream>

// Without these, a failed comparison would show the text as a list of numbers. GoogleTest finds them by
// argument-dependent look-up, hence no namespace.

inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << text.toStdString() << '"';
}
