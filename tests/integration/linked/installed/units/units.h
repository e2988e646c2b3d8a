#pragma once

namespace units {
using Length = int;
}
