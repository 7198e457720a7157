// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_DYNAMICTYPE_HPP
#define QXQRSCRIPT_TESTS_DYNAMICTYPE_HPP

#include <typeinfo>

// The class that `object` really is. Written typeid(*pointer), the operand
// would be an expression evaluated at run time, which some compilers warn
// about; a reference is not.
template <class T>
const std::type_info& dynamicType(const T& object) {
    return typeid(object);
}

#endif
