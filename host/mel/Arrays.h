#pragma once

#include "engine/Value.h"

namespace host::mel {

class Interpreter;

/// Arrays longer than this are taken for a mistake of the script.
constexpr int MAXIMUM_ELEMENTS = 1 << 24;

/// Raises an error for an index that no array can have.
void CheckIndex(Interpreter& interpreter, int index);
/// Grows or cuts an array; new elements hold their kind's default.
void Resize(Interpreter& interpreter, Value& array, int size);
/// Writes one element, converted to the array's kind; the array grows to hold it.
void SetElement(Interpreter& interpreter, Value& array, int index, const Value& value);
/// One element; the kind's default beyond the end.
Value Element(Interpreter& interpreter, const Value& array, int index);
/// One cell of a matrix. Raises an error when there is none.
double& Cell(Interpreter& interpreter, Value& matrix, int row, int column);

} // namespace host::mel
