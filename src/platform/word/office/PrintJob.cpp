#include "PrintJob.h"

#include "Uno.h"

#include <com/sun/star/view/PrintableState.hpp>
#include <com/sun/star/view/XPrintJobBroadcaster.hpp>
#include <com/sun/star/view/XPrintable.hpp>
#include <cppuhelper/implbase1.hxx>
#include <rtl/ref.hxx>

#include <atomic>

using namespace com::sun::star;

namespace {

class Listener : public cppu::WeakImplHelper1<view::XPrintJobListener> {
  public:
    void SAL_CALL printJobEvent(const view::PrintJobEvent &event) override { m_state = event.State; }
    void SAL_CALL disposing(const lang::EventObject &) override {}
    view::PrintableState state() const { return m_state; }

  private:
    std::atomic<view::PrintableState> m_state{view::PrintableState_JOB_STARTED};
};

} // namespace

bool printed(const uno::Reference<lang::XComponent> &document) {
    const rtl::Reference<Listener> listener(new Listener);
    const uno::Reference<view::XPrintJobListener> listening(listener.get());
    const uno::Reference<view::XPrintJobBroadcaster> broadcaster(document, uno::UNO_QUERY_THROW);
    broadcaster->addPrintJobListener(listening);
    const uno::Reference<view::XPrintable> printable(document, uno::UNO_QUERY_THROW);
    printable->print(properties({property("Wait", true)}));
    broadcaster->removePrintJobListener(listening);
    const view::PrintableState state = listener->state();
    return state == view::PrintableState_JOB_COMPLETED || state == view::PrintableState_JOB_SPOOLED;
}
