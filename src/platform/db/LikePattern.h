#pragma once

#include <QStringView>

/// Whether `text` matches `pattern` as the desktop engine's "like" does: * any run, ? one character,
/// # one digit, […] one of a set with ranges, [!…] one not of it. Case is ignored for all of Unicode;
/// accents count. A [ without its ] stands for itself; an
/// empty [] is matched by nothing.
bool matchesLike(QStringView pattern, QStringView text);
