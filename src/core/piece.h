// The buffers the writers write their children's pieces into. A writer at each depth of a tree needs
// one; a std::string of its own would take memory from the heap on every call as soon as a piece is
// longer than a few bytes. A thread keeps one buffer per depth instead, with its capacity, for all the
// writing it does.
#ifndef QARVELT_SRC_CORE_PIECE_H
#define QARVELT_SRC_CORE_PIECE_H

#include <string>

namespace qarvelt::detail {

class PieceBuffer {
 public:
  // Takes the calling thread's buffer of the next depth, empty.
  PieceBuffer();
  // Gives it back; a buffer that grew very large gives its memory back too.
  ~PieceBuffer();
  PieceBuffer(const PieceBuffer&) = delete;
  PieceBuffer& operator=(const PieceBuffer&) = delete;

  std::string& text() { return *m_text; }

 private:
  std::string* m_text;
};

}  // namespace qarvelt::detail

#endif  // QARVELT_SRC_CORE_PIECE_H
