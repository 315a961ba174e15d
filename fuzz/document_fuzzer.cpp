// Texts of documents of any kind: read, written, read again, drawn and moved.

#include "document_checks.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    document_checks::check(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
