#pragma once

#include <QString>

/// Why a file cannot be a template, as a French sentence; empty when it may be one. An office takes whatever
/// it does not know for plain text.
QString refusedTemplate(const QString &path);
