#include "piece.h"

#include <memory>
#include <vector>

namespace qarvelt::detail {

namespace {

// Buffers by depth; each is allocated once, so that a buffer handed out stays where it is while
// deeper writers take more.
struct Buffers {
  std::vector<std::unique_ptr<std::string>> byDepth;
  std::size_t depth = 0;
};

// Read through one pointer of the initial-exec model, as the node allocator reads its lists.
#if defined(__GNUC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local Buffers* t_buffers = nullptr;

struct Keeper {
  ~Keeper() {
    delete t_buffers;
    t_buffers = nullptr;
  }
};
thread_local Keeper keeper;

__attribute__((noinline)) Buffers* makeBuffers() {
  static_cast<void>(&keeper);  // constructs the keeper, so that the buffers go with the thread
  t_buffers = new Buffers();
  return t_buffers;
}

// What a buffer may keep between writings.
constexpr std::size_t kKept = 64 * 1024;

}  // namespace

PieceBuffer::PieceBuffer() {
  Buffers* buffers = t_buffers;
  if (buffers == nullptr) buffers = makeBuffers();
  if (buffers->depth == buffers->byDepth.size()) buffers->byDepth.push_back(std::make_unique<std::string>());
  m_text = buffers->byDepth[buffers->depth++].get();
  m_text->clear();
}

PieceBuffer::~PieceBuffer() {
  if (m_text->capacity() > kKept) std::string().swap(*m_text);
  if (Buffers* buffers = t_buffers) --buffers->depth;
}

}  // namespace qarvelt::detail
