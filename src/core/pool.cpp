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
};

Reserve& reserve() {
  static Reserve* const shared = new Reserve();
  return *shared;
}

// One thread's lists and the chunk it carves from. Trivially destructible, so that it stays usable
// while the thread's other thread-local objects are destroyed; the keeper below hands its contents
// to the reserve when the thread ends.
struct Local {
  Lists lists;
  char* cursor;
  char* end;
};

thread_local Local local{};

struct Keeper {
  bool armed = false;
  ~Keeper() {
    Reserve& shared = reserve();
    std::lock_guard<std::mutex> lock(shared.mutex);
    for (std::size_t c = 0; c < kClasses; ++c) {
      FreeBlock* list = local.lists[c];
      if (list == nullptr) continue;
      FreeBlock* last = list;
      while (last->next != nullptr)
        last = last->next;
      last->next = shared.lists[c];
      shared.lists[c] = list;
      local.lists[c] = nullptr;
    }
    if (local.cursor != local.end) shared.remnants.emplace_back(local.cursor, local.end);
    local.cursor = local.end = nullptr;
  }
};

thread_local Keeper keeper;

// The slow path: the reserve's list of the class, else a block carved from the current chunk, else a
// new chunk (a remnant first).
void* refill(std::size_t c) {
  keeper.armed = true;  // makes sure the keeper is constructed, and so destroyed with the thread
  const std::size_t size = (c + 1) * kGrain;
  Reserve& shared = reserve();
  {
    std::lock_guard<std::mutex> lock(shared.mutex);
    if (FreeBlock* list = shared.lists[c]) {
      shared.lists[c] = nullptr;
      local.lists[c] = list->next;
      return list;
    }
    if (static_cast<std::size_t>(local.end - local.cursor) < size) {
      // The rest of the current chunk is too small for this class: it goes to the reserve.
      if (local.cursor != local.end) shared.remnants.emplace_back(local.cursor, local.end);
      local.cursor = local.end = nullptr;
      while (!shared.remnants.empty()) {
        auto [from, to] = shared.remnants.back();
        shared.remnants.pop_back();
        if (static_cast<std::size_t>(to - from) >= size) {
          local.cursor = from;
          local.end = to;
          break;
        }
      }
    }
  }
  if (local.cursor == nullptr) {
    local.cursor = static_cast<char*>(::operator new(kChunk));
    local.end = local.cursor + kChunk;
    std::lock_guard<std::mutex> lock(shared.mutex);
    shared.chunks.push_back(local.cursor);
  }
  void* block = local.cursor;
  local.cursor += size;
  return block;
}

}  // namespace

void* AllocateNode(std::size_t size) {
  if (size == 0 || size > kLargest) return ::operator new(size);
  const std::size_t c = classOf(size);
  if (FreeBlock* block = local.lists[c]) {
    local.lists[c] = block->next;
    return block;
  }
  return refill(c);
}

void FreeNode(void* block, std::size_t size) noexcept {
  if (block == nullptr) return;
  if (size == 0 || size > kLargest) {
    ::operator delete(block);
    return;
  }
  const std::size_t c = classOf(size);
  auto* free = static_cast<FreeBlock*>(block);
  free->next = local.lists[c];
  local.lists[c] = free;
}

#endif

}  // namespace qarvelt::detail
