#pragma once

#include <com/sun/star/lang/XComponent.hpp>

/// Prints on the default printer, and waits until that has taken the document. False when it refuses.
bool printed(const com::sun::star::uno::Reference<com::sun::star::lang::XComponent> &document);
