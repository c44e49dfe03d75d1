#pragma once

#include <com/sun/star/lang/XComponent.hpp>

#include <QString>

/// Puts what linked sections show, as it is now, into the document itself, which knows nothing of other files
/// then: it must not show another patient's tomorrow. A file is looked for beside the template first, as
/// folders move. Gives the name of one that is not to be found; empty: all are.
QString takeLinkedFiles(const com::sun::star::uno::Reference<com::sun::star::lang::XComponent> &document,
                        const QString &templatePath);
