// What the program and the tool that makes its library must agree on: the tables of the file, the mark in its
// header and its password.
#pragma once

#include "platform/database/database.h"

#include <QString>
#include <vector>

namespace quillbrook {

// The tables of a library, in the order in which they are made.
std::vector<platform::TableDef> LibraryTables();

// The mark that tells a library from any other file of the engine.
platform::FileFormat LibraryFileFormat();

// The library's password: twelve decimal digits, put together anew at each call.
QString BuildLibraryPassword();

} // namespace quillbrook
