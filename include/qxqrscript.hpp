// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_HPP
#define QXQRSCRIPT_HPP

#include <qxqrscript/FileReader.hpp>
#include <qxqrscript/Parser.hpp>
#include <qxqrscript/QuorelRules.hpp>
#include <qxqrscript/Rules.hpp>
#include <qxqrscript/host.hpp>
#include <qxqrscript/observe.hpp>
#include <qxqrscript/version.hpp>

#endif
