#pragma once

#include <string>

#include "common/status.h"

/// Returns a report as text.
std::string Describe(const robot::status::Report& report);
