// Stored managers of any kind: read, written and read again; damaged sets cost no more than themselves.

#include "manager_json_checks.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    manager_json_checks::check(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
