// A member of an object, called by its number.
#pragma once

#include <levelwidgets/activex/object/members.h>
#include <levelwidgets/activex/object/runtime.h>

namespace levelwidgets::activex {

// As IDispatch::Invoke. Arguments convert to the types of the member's; those that a caller leaves out have
// their defaults. More arguments than a property has, or any for one without, go to the default member of the
// object that it holds, as in grid.Columns(2). What the member or a conversion raises is an exception with
// number, source and description; so are wrong numbers of arguments and assignments of what is read-only.
HRESULT InvokeMember(Runtime& runtime, Object& object, DISPID member, WORD flags, DISPPARAMS* parameters,
                     VARIANT* result, EXCEPINFO* exception);

// As IDispatch::GetIDsOfNames.
HRESULT IdsOfNames(const ClassInfo& info, LPOLESTR* names, UINT count, DISPID* ids);

}  // namespace levelwidgets::activex
