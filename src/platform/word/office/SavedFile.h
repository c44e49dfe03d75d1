#pragma once

#include <QFileDevice>
#include <QString>

#include <mutex>

/// Holds off the end of the program while a file is half written.
extern std::mutex halfWritten;

/// Why `path` could not be written through `file`: the end of a French sentence.
QString reasonOf(const QFileDevice &file, const QString &path);

/// Puts `made` in the place of `path`, whole or not at all: another program never sees a part of it. Throws
/// WordError.
void replaceFile(const QString &made, const QString &path);

/// The same under the first name of its kind that nobody has ("a.pdf", "a_2.pdf"…), which it gives.
QString addFile(const QString &made, const QString &path);
