#pragma once

#include <com/sun/star/task/DocumentMSPasswordRequest.hpp>
#include <com/sun/star/task/DocumentMSPasswordRequest2.hpp>
#include <com/sun/star/task/DocumentPasswordRequest.hpp>
#include <com/sun/star/task/DocumentPasswordRequest2.hpp>
#include <com/sun/star/task/XInteractionAbort.hpp>
#include <com/sun/star/task/XInteractionHandler.hpp>
#include <cppuhelper/implbase1.hxx>
#include <rtl/ref.hxx>

#include <atomic>

/// Answers no question of the office, so that none waits, and remembers the one that the user understands.
class Interaction : public cppu::WeakImplHelper1<com::sun::star::task::XInteractionHandler> {
  public:
    void SAL_CALL handle(
        const com::sun::star::uno::Reference<com::sun::star::task::XInteractionRequest> &request) override {
        using namespace com::sun::star::task;
        const com::sun::star::uno::Any asked = request->getRequest();
        if (asked.has<DocumentMSPasswordRequest>() || asked.has<DocumentMSPasswordRequest2>() ||
            asked.has<DocumentPasswordRequest>() || asked.has<DocumentPasswordRequest2>()) {
            m_password = true;
        }
        for (const auto &continuation : request->getContinuations()) {
            const com::sun::star::uno::Reference<XInteractionAbort> abort(continuation,
                                                                          com::sun::star::uno::UNO_QUERY);
            if (abort.is()) {
                abort->select();
            }
        }
    }
    bool passwordAsked() const { return m_password; }

  private:
    std::atomic<bool> m_password{false};
};
