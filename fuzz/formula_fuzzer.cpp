// Formula text of any kind in several locales and units: read, judged, printed, evaluated, written and read
// again.

#include "formula_checks.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    formula_checks::check(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
