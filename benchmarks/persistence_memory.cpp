// Peak memory of writing and reading a document, beside what is left of it in the end.
//
// persistence_memory
//
// Every allocation of the program is counted, those of Qt included.

#include "SampleDocument.h"

#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <malloc.h>
#include <memory>

using namespace VorSystem;

namespace
{

std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

void *counted(void *block)
{
    liveBytes += malloc_usable_size(block);
    peakBytes = std::max(peakBytes, liveBytes);
    return block;
}

} // namespace

// The C library's own functions under their other names: what is defined here takes the place of the usual
// ones in the whole program.
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *block);

void *malloc(std::size_t size)
{
    return counted(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size)
{
    return counted(__libc_calloc(count, size));
}

void *realloc(void *block, std::size_t size)
{
    // Both blocks exist at once while the contents move.
    const std::size_t before = malloc_usable_size(block);
    void *const moved = counted(__libc_realloc(block, size));
    liveBytes -= before;
    return moved;
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    return counted(__libc_memalign(alignment, size));
}

void free(void *block)
{
    liveBytes -= malloc_usable_size(block);
    __libc_free(block);
}
}

namespace
{

template<class Act>
void measure(const char *name, int elements, Act act)
{
    const std::size_t before = liveBytes;
    peakBytes = liveBytes;
    const auto result = act();
    const std::size_t finished = liveBytes - before;
    const std::size_t peak = peakBytes - before;
    std::printf("%-6s %9d %12zu %12zu %7.3f\n", name, elements, finished, peak,
                static_cast<double>(peak) / static_cast<double>(finished));
}

} // namespace

int main()
{
    std::printf("%-6s %9s %12s %12s %7s\n", "act", "elements", "finished", "peak", "ratio");
    for (const int elements : {10, 1000, 20000}) {
        const XJsonObject object = XJsonObject::fromJsonObject(sampleDocument("usual", elements));
        const auto read = [&object] {
            auto manager = std::make_unique<GestFrames>();
            manager->fromJson(object, false);
            return manager;
        };
        const auto manager = read(); // first, so that what is made once in a program is not counted
        measure("read", elements, read);
        measure("write", elements, [&manager] { return manager->toJson(); });
    }
    return 0;
}
