#include "veltrane/base/ref.hpp"

#include "veltrane/base/chunk_pool.hpp"

namespace veltrane {

void Transient::dispose() const noexcept {
    if (!in_chunk_) {
        delete this;
        return;
    }
    Chunk* const chunk = Chunk::of(this);
    this->~Transient();
    chunk->release();
}

}  // namespace veltrane
