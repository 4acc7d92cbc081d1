#include "Quoted.h"

std::string Quoted(const std::string& text) { return '"' + text + '"'; }
