#include "pool.h"

#include <array>
#include <mutex>
#include <new>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define QARVELT_POOL_DISABLED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QARVELT_POOL_DISABLED 1
#endif
#endif

namespace qarvelt::detail {

#ifdef QARVELT_POOL_DISABLED

void* AllocateNode(std::size_t size) {
  return ::operator new(size);
}

void FreeNode(void* block, std::size_t /*size*/) noexcept {
  ::operator delete(block);
}

NodeMemory NodeMemoryInUse() {
  return NodeMemory{};
}

#else

namespace {

constexpr std::size_t kGrain = 16;     // block sizes are multiples of this
constexpr std::size_t kLargest = 512;  // larger nodes go to the global allocator
constexpr std::size_t kClasses = kLargest / kGrain;
constexpr std::size_t kChunk = 64 * 1024;  // carved into blocks as they are first needed

struct FreeBlock {
  FreeBlock* next;
};

using Lists = std::array<FreeBlock*, kClasses>;

std::size_t classOf(std::size_t size) {
  return (size + kGrain - 1) / kGrain - 1;
}

// What threads that ended left behind, and every chunk ever taken. Never destroyed: nodes of static
// trees may be freed after every other static object is gone.
struct Reserve {
  std::mutex mutex;
  Lists lists{};
  std::vector<std::pair<char*, char*> > remnants;  // uncarved ends of chunks
  std::vector<char*> chunks;
  std::size_t reserved = 0;
};

Reserve& reserve() {
  static Reserve* const shared = new Reserve();
  return *shared;
}

// One thread's lists and the chunk it carves from. A thread reaches its own through one pointer of
// the initial-exec model: eight bytes of static thread storage, read without a call, even when the
// library is loaded by dlopen (as the Python module is).
struct Local {
  Lists lists{};
  char* cursor = nullptr;
  char* end = nullptr;
  std::ptrdiff_t inUse = 0;  // bytes of blocks this thread took and has not freed
};

#if defined(__GNUC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local Local* t_local = nullptr;

// Hands the thread's lists and the rest of its chunk to the reserve when the thread ends. Frees after
// that (of static trees, say) go to the reserve directly.
struct Keeper {
  ~Keeper() {
    Local* local = t_local;
    if (local == nullptr) return;
    t_local = nullptr;
    Reserve& shared = reserve();
    std::lock_guard<std::mutex> lock(shared.mutex);
    for (std::size_t c = 0; c < kClasses; ++c) {
      FreeBlock* list = local->lists[c];
      if (list == nullptr) continue;
      FreeBlock* last = list;
      while (last->next != nullptr)
        last = last->next;
      last->next = shared.lists[c];
      shared.lists[c] = list;
    }
    if (local->cursor != local->end) shared.remnants.emplace_back(local->cursor, local->end);
    delete local;
  }
};

thread_local Keeper keeper;

__attribute__((noinline)) Local* makeLocal() {
  static_cast<void>(&keeper);  // constructs the keeper, so that it is destroyed with the thread
  t_local = new Local();
  return t_local;
}

// The slow path: the reserve's list of the class, else a block carved from the current chunk, else a
// new chunk (a large enough remnant first).
__attribute__((noinline)) void* refill(Local& local, std::size_t c) {
  const std::size_t size = (c + 1) * kGrain;
  Reserve& shared = reserve();
  std::lock_guard<std::mutex> lock(shared.mutex);
  if (FreeBlock* list = shared.lists[c]) {
    shared.lists[c] = nullptr;
    local.lists[c] = list->next;
    return list;
  }
  if (static_cast<std::size_t>(local.end - local.cursor) < size) {
    if (local.cursor != local.end) shared.remnants.emplace_back(local.cursor, local.end);
    local.cursor = local.end = nullptr;
    for (std::size_t i = 0; i < shared.remnants.size(); ++i) {
      auto [from, to] = shared.remnants[i];
      if (static_cast<std::size_t>(to - from) < size) continue;
      local.cursor = from;
      local.end = to;
      shared.remnants.erase(shared.remnants.begin() + static_cast<std::ptrdiff_t>(i));
      break;
    }
    if (local.cursor == nullptr) {
      local.cursor = static_cast<char*>(::operator new(kChunk));
      local.end = local.cursor + kChunk;
      shared.chunks.push_back(local.cursor);
      shared.reserved += kChunk;
    }
  }
  void* block = local.cursor;
  local.cursor += size;
  return block;
}

}  // namespace

void* AllocateNode(std::size_t size) {
  if (size == 0 || size > kLargest) return ::operator new(size);
  const std::size_t c = classOf(size);
  Local* local = t_local;
  if (local == nullptr) local = makeLocal();
  local->inUse += static_cast<std::ptrdiff_t>((c + 1) * kGrain);
  if (FreeBlock* block = local->lists[c]) {
    local->lists[c] = block->next;
    return block;
  }
  return refill(*local, c);
}

void FreeNode(void* block, std::size_t size) noexcept {
  if (block == nullptr) return;
  if (size == 0 || size > kLargest) {
    ::operator delete(block);
    return;
  }
  const std::size_t c = classOf(size);
  auto* free = static_cast<FreeBlock*>(block);
  if (Local* local = t_local) {
    local->inUse -= static_cast<std::ptrdiff_t>((c + 1) * kGrain);
    free->next = local->lists[c];
    local->lists[c] = free;
    return;
  }
  // The thread has ended its use of the pool (or never began it): straight to the reserve.
  Reserve& shared = reserve();
  std::lock_guard<std::mutex> lock(shared.mutex);
  free->next = shared.lists[c];
  shared.lists[c] = free;
}

NodeMemory NodeMemoryInUse() {
  NodeMemory memory;
  if (Local* local = t_local) memory.in_use = local->inUse;
  Reserve& shared = reserve();
  std::lock_guard<std::mutex> lock(shared.mutex);
  memory.reserved = shared.reserved;
  return memory;
}

#endif

}  // namespace qarvelt::detail
