#pragma once
// How every order control ends: a refusal is shown with the critical sign and
// changes nothing; anything taken marks the turn changed and refills every
// order list on every screen.
#include "orders/orderresult.h"
#include "ui/sessioncontroller.h"

namespace kestrin::ui {

inline bool settle(SessionController& controller, const OrderResult& result) {
    if (!settleOrder(controller.session(), result, controller.messages())) return false;
    controller.rebuildOrderLists();
    return true;
}

// A check that runs before a dialog opens: only its refusal is shown, and a
// check that passes changes nothing.
inline bool passes(SessionController& controller, const OrderResult& check) {
    if (check) return true;
    controller.messages().refuse(check.title, check.text);
    return false;
}

}  // namespace kestrin::ui
