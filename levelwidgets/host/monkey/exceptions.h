// Where a control is required to behave other than the invariants say: its table has a flag there.
#pragma once

#include <levelwidgets/host/form/form.h>

namespace levelwidgets::monkey {

// Whether a control refuses to be given what it has.
bool RefusesItsOwn(const Control& control, const PropertyInfo& property);

// Whether a property may be another once it has been given what it had.
bool BecomesAnother(const PropertyInfo& property);

// Whether the control refuses to load what it would save, a value that is out of its range, or would load
// another text, one that is formatted again.
bool CannotLoadAgain(const Control& control);

// Whether input on the form may raise the error: on a control with a range, whose steps have no bounds, and
// on one that converts what is typed.
bool InputMayRaise(const Error& error, const Form& form);

// Whether writing the property may change how the control will look, without painting it.
bool IsShownLater(const PropertyInfo& property);

// Whether the control may look other than it will once painted whatever was written to it: its font changes
// without a repaint, or it shows a loss of the focus later.
bool MayLookLate(const Control& control, const std::vector<std::shared_ptr<HostedControl>>& all);

// The same of a control inside a panel.
bool LooksLate(const Control& control);

}  // namespace levelwidgets::monkey
