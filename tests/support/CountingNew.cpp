#include "support/CountingNew.h"

#include <cstdlib>
#include <new>

long pulselark::Allocations = 0;

// Every other form of new ends in one of these two.
void* operator new(std::size_t size) {
    ++pulselark::Allocations;
    if (void* place = std::malloc(size))
        return place;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    ++pulselark::Allocations;
    const auto border = static_cast<std::size_t>(alignment);
    if (void* place = std::aligned_alloc(border, (size + border - 1) / border * border))
        return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t) noexcept {
    std::free(place);
}
void operator delete(void* place, std::align_val_t) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t, std::align_val_t) noexcept {
    std::free(place);
}
