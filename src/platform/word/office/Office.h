#pragma once

#include "platform/word/OfficeFolder.h"

#include <com/sun/star/uno/XComponentContext.hpp>

/// A LibreOffice process of our own, with a fresh profile. The system kills it when this program ends,
/// however it does.
class Office {
  public:
    /// Returns when it answers. Throws WordError when it ends instead.
    explicit Office(const OfficeFolder &folder);
    ~Office();
    Office(const Office &) = delete;
    Office &operator=(const Office &) = delete;

    /// False when its process has ended.
    static bool alive();
    /// Kills the one there is and waits for its end: for any thread, at any time.
    static void kill();

    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> &context() const {
        return m_context;
    }

  private:
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> m_context;
};
