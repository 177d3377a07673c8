// The allocator of tree nodes. A statement is hundreds of small nodes made and freed together, which
// is where a general-purpose allocator is slowest: nodes come from per-thread lists of free blocks,
// one list per size class, carved from large chunks. A block freed on another thread joins that
// thread's lists; the lists of a thread that ends go to a shared reserve for the next one. Chunks are
// kept for reuse until the process ends, as a block allocator does.
//
// Built with AddressSanitizer, every node goes to the global allocator instead, so that a use after
// free of a node is still caught.
#ifndef QARVELT_SRC_CORE_POOL_H
#define QARVELT_SRC_CORE_POOL_H

#include "qarvelt/core/clause.h"  // declares AllocateNode and FreeNode

#endif  // QARVELT_SRC_CORE_POOL_H
