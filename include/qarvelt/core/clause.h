// The node from which every statement tree is built.
//
// A node has a name, an initial and a current value, three texts written around it (prefix, suffix,
// postfix), an ordered list of owned children and two optional callbacks. Hosts address nodes by
// attribute paths: node names joined by ";" ("C_PHYSICAL_ATTRIBUTES;C_STORAGE;INITIAL"), where "*"
// matches any one child and a final "*" the whole subtree. Nodes named "CONTAINER" hold no path
// segment of their own: the path walks straight through them.
//
// One writing operation, GetModifiedSQL, serves CREATE and ALTER text alike: a leaf writes itself
// only when its current value differs from its initial value.
//
// A clause builds its subtree the first time an operation needs the nodes themselves (Copy,
// GetLength, GetChild, GetClause, AddAttr below it), always with the release code it was constructed
// with. Until then the values set below it by SetValue and SetInit are held beside the shape that
// every node of its class and release code shares, and the writer writes them from there. Reading a
// tree may therefore change it: share a tree between threads only behind a lock.
#ifndef QARVELT_CORE_CLAUSE_H
#define QARVELT_CORE_CLAUSE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qarvelt/core/text.h"

namespace qarvelt {

class CSQLClause;
namespace build {
class Node;
}

namespace detail {
struct Shape;
struct HeldValues;
void* AllocateNode(std::size_t size);
void FreeNode(void* block, std::size_t size) noexcept;
// What the node allocator holds: the bytes of blocks the calling thread took and has not freed (a
// block freed by another thread counts there), and the bytes taken from the system for blocks, kept
// for reuse until the process ends. Both 0 when nodes come from the global allocator (sanitizer builds).
struct NodeMemory {
  std::ptrdiff_t in_use = 0;
  std::size_t reserved = 0;
};
NodeMemory NodeMemoryInUse();

// Hands the storage of a node's small parts (its list of children) to the node allocator.
template <class T>
struct NodeAllocator {
  using value_type = T;
  NodeAllocator() noexcept = default;
  template <class U>
  NodeAllocator(const NodeAllocator<U>& /*other*/) noexcept {}  // NOLINT: rebinding is implicit
  T* allocate(std::size_t n) { return static_cast<T*>(AllocateNode(n * sizeof(T))); }
  void deallocate(T* block, std::size_t n) noexcept { FreeNode(block, n * sizeof(T)); }
  template <class U>
  bool operator==(const NodeAllocator<U>& /*other*/) const noexcept {
    return true;
  }
  template <class U>
  bool operator!=(const NodeAllocator<U>& /*other*/) const noexcept {
    return false;
  }
};
}  // namespace detail

// Called by the writer after a node's prefix step (linked = the node's linked clause) and after its
// postfix step (linked = null). `text` is the node's text so far and may be changed; `value` and
// `initialValue` are the node's own strings. Returning 1 finishes the node at once; what it leaves
// unwritten below the node then counts as written. A callback should not give text to a node that
// has nothing to write: an OR container would choose that alternative on every pass.
using SQLCallback = int (*)(std::string& text,
                            std::string& value,
                            std::string& initialValue,
                            CSQLClause* linked);

// Checks a value before a leaf accepts it: 0 accepts, anything else refuses (3 by convention).
using SQLValidator = int (*)(const char* value);

// Result codes of the int-returning operations.
enum SQLResult : int {
  SQL_OK = 0,              // done; for GetModifiedSQL: text was produced
  SQL_NOTHING = 2,         // GetModifiedSQL: the node produced no text
  SQL_INVALID = 3,         // a validator refused the value
  SQL_NOT_FOUND = 4,       // no node matched the path, or the argument was unusable (null node)
  SQL_RECORD_MISSING = 5,  // an information record needed by a change script is missing
  SQL_VANISHED = 6,        // CSQLList::RemoveAttr: the item found was no longer in the list
  SQL_DUPLICATE = 7,       // an item of that name exists already
};

// The release code a node is built for when none is given: the latest Oracle release known.
constexpr int kLatestRelease = 7;
// The newest release code known: 8 Oracle 12c Release 1, 9 12c Release 2 and 18c, 10 19c, 11 21c,
// 12 23ai. Gates compare with these codes as with the older ones (a gate ">= 7" holds for them).
constexpr int kNewestRelease = 12;

class CSQLClause {
 public:
  explicit CSQLClause(bool bInit = true, int nOraVersion = kLatestRelease);
  virtual ~CSQLClause();

  CSQLClause(const CSQLClause&) = delete;
  CSQLClause& operator=(const CSQLClause&) = delete;

  // Nodes come from the library's node allocator: a tree is many small nodes made and freed together.
  static void* operator new(std::size_t size);
  static void operator delete(void* node, std::size_t size) noexcept;
  // Placement forms, so that a node can still be built in storage of the host's.
  static void* operator new(std::size_t /*size*/, void* where) noexcept { return where; }
  static void operator delete(void* /*node*/, void* /*where*/) noexcept {}

  virtual std::string GetSubType();

  // Writes the text of everything modified below `path` ("*" for the whole tree; a null path is read
  // as "*"). Returns 0 when text was produced, 2 when the node has nothing to write.
  virtual int GetModifiedSQL(const char* path, std::string& text);
  // Kept for interface compatibility: writes nothing and returns 0.
  virtual int GetSQL(const char* path, std::string& text);
  virtual std::string GetValue();

  // Set the initial / current value of the node that `path` addresses (null: this node).
  // 0 on success, 4 when no node accepted the value, a validator's code on the leaf itself.
  virtual int SetInit(const char* path, const char* value);
  virtual int SetValue(const char* path, const char* value);
  // Appends `node` below the node that `path` addresses (null: this node). On success the tree owns
  // `node`; when the result is not 0 (no such path, or `node` is null) the caller still owns it.
  virtual int AddAttr(const char* path, CSQLClause* node);
  // The base node removes nothing and returns 0; lists remove the item named by the path's head.
  virtual int RemoveAttr(const char* path);
  virtual CSQLClause* GetClause(const char* path);
  virtual bool IsModified(const char* path);
  // Empties every value and initial value below this node; the shape of the tree stays.
  virtual void Clear();
  // Copies this node's texts, values, callbacks, validator and release code into `target` and appends
  // clones of this node's children after `target`'s own children.
  virtual void Copy(CSQLClause* target);
  // A deep copy of this node of the same class; the caller owns it.
  virtual CSQLClause* operator*();
  virtual bool hasUnused();
  virtual void RefreshUsed();

  std::string GetType() const { return std::string(m_name.str()); }
  int GetLength() const { return static_cast<int>(children().size()); }
  int SetPrefix(const char* prefix);
  void SetAfterPrefix(SQLCallback cb) { setCallback(cb, false); }
  void SetAfterPostfix(SQLCallback cb) { setCallback(cb, true); }
  int GetOraVersion() const { return m_nOraVersion; }
  void SetOraVersion(int nOraVersion) { m_nOraVersion = nOraVersion; }

  // Conveniences beside the classic interface.
  std::unique_ptr<CSQLClause> Clone() { return std::unique_ptr<CSQLClause>(operator*()); }
  // Like AddAttr, but the node is deleted when it could not be appended.
  int AddAttr(const char* path, std::unique_ptr<CSQLClause> node);
  // The child at `index` in order of appending, or null when out of range.
  CSQLClause* GetChild(int index) const;
  std::string GetInit() const { return m_strInit; }
  std::string GetPrefix() const { return std::string(m_prefix.str()); }
  std::string GetSuffix() const { return std::string(suffixText()); }
  std::string GetPostfix() const { return std::string(postfixText()); }

 protected:
  virtual int setValue(const char* path, const char* value);
  virtual int setInit(const char* path, const char* value);
  virtual bool isModified(const char* path);
  virtual int preModifiedSQL(const char* path, std::string& text);
  virtual int postModifiedSQL(const char* path, std::string& text);
  // Builds the node's subtree, the first time it is needed.
  virtual void init();
  // True for a class whose init() reads more than the release code (a member set by its
  // constructor): its nodes then never share the shape of another node of the class, and build their
  // subtrees as soon as a path walk enters them.
  virtual bool buildsFromOwnState() const { return false; }
  virtual void resetUsedAttrs();

  // Path grammar. getAttr: the first segment. nextAttr: the rest after the first ";" (a pointer into
  // `path`); a path that is exactly "*" is its own rest; otherwise null once the path is used up.
  // isEqual: the first segment is "*" or names this node, ignoring case.
  static std::string getAttr(const char* path);
  // The first segment as a view into `path`: what the walks compare, without a copy.
  static std::string_view headOf(const char* path);
  // Both at once: sets `head` to the first segment and returns what nextAttr returns.
  static const char* splitPath(const char* path, std::string_view& head);
  static const char* nextAttr(const char* path);
  bool isEqual(const char* path) const;

  // Names the node and, when bInit is true, builds its subtree: the body of every constructor
  // `(bool bInit, int nOraVersion)` of a node class.
  void setup(TreeText name, bool bInit);
  void setName(TreeText name);
  // Name and kind of another node, for the writers of derived classes.
  static std::string_view nameOf(const CSQLClause* node) { return node->m_name.str(); }
  static bool isContainer(const CSQLClause* node) { return node->m_bContainer; }
  // True when `node` is named exactly `name` (byte for byte): the test of every path walk, lengths
  // first, then the first and last bytes (names of items often differ only in their numbers), so
  // that most children are passed over without a call.
  static bool isNamed(const CSQLClause* node, std::string_view name) {
    const std::string_view own = node->m_name.str();
    const std::size_t n = name.size();
    if (own.size() != n) return false;
    if (n == 0) return true;
    if (own[0] != name[0] || own[n - 1] != name[n - 1]) return false;
    return n <= 2 || std::memcmp(own.data() + 1, name.data() + 1, n - 2) == 0;
  }
  // Copies this node into `fresh` (an empty shell of the same class) and returns it: the body of
  // every operator*().
  CSQLClause* cloneInto(CSQLClause* fresh);
  // After Copy: links between nodes of the copied subtree (the `count` children appended to `target`
  // from `offset` on) are pointed at the copies; links to nodes outside it are cleared, so that a
  // copy never refers to a node it does not own.
  void relinkCopies(CSQLClause* target, std::size_t offset, std::size_t count);
  // Points this node's link at `target` (null: no link). The target remembers the nodes linked to it
  // and clears their links when it is destroyed, so a link never outlives the node it names.
  void setLinked(CSQLClause* target);
  // Marks every modified node of this subtree as written: what a callback leaves out on purpose
  // counts as consumed, so a host's pass loop does not wait for it.
  void markWritten();
  // Lets every OR container below this node (not only the direct children) withdraw the alternative
  // it has written: the part of RefreshUsed that reaches nested alternatives.
  void refreshNested();
  // The first steps of every writer: empty the text, write the prefix, call the after-prefix callback.
  // True when the callback finished the node (the writer then returns 0 at once).
  bool beginText(const char* path, std::string& text);
  // The last steps: the postfix, the after-postfix callback, and the result (0 when the callback
  // finished the node or text was written, else 2).
  int endText(const char* path, std::string& text);
  // Writes the children that `path` selects and joins their pieces into `text` (one blank, or none
  // after "(" or "."): the middle step of the general writer.
  void writeChildren(const char* path, std::string& text);
  // Appends a trimmed, non-empty piece to `text` by the join rule.
  static void joinPiece(std::string& text, std::string_view piece);
  // `piece` without its leading and trailing white space, as a view into it.
  static std::string_view trimmedView(const std::string& piece);

  static constexpr char kContainerName[] = "CONTAINER";

  // The children, built first when the node's init() has not run yet. Every operation that needs the
  // subtree goes through here; the ones for which an unbuilt subtree and an untouched one are the
  // same (nothing modified, nothing written, nothing to clear) read m_children as it stands.
  using Children =
      std::vector<std::unique_ptr<CSQLClause>, detail::NodeAllocator<std::unique_ptr<CSQLClause>>>;
  Children& children() {
    if (m_nPendingCode >= 0) build();
    return m_children;
  }
  const Children& children() const {
    if (m_nPendingCode >= 0) build();
    return m_children;
  }
  // Appends `child` (owned from now on) and counts what it holds into this node and its ancestors.
  void appendChild(CSQLClause* child);
  // Removes and deletes the child at `index`, taking its counts back.
  void eraseChild(std::size_t index);
  // Deletes every child.
  void eraseChildren();
  // To be called after this node's value or initial value changed: keeps the modified counts true.
  void noteValue();
  // To be called after a callback changed: keeps the counts of nodes the writer must visit true.
  void noteHooks();
  // True for a node whose writer gives text even when nothing below it is modified (the heads of
  // statements, a plain container that reports text it does not have). The writer never passes over
  // such a node.
  virtual bool writesUnmodified() const { return false; }
  // True when writing this node would give nothing and change nothing: no modified value below it,
  // and no callback or writer of the kind above. The writers pass over such children.
  static bool isQuiet(const CSQLClause* node) { return node->m_nModified == 0 && node->m_nHooks == 0; }
  // True when some node of the subtree, `node` included, is modified: IsModified("*") in one step.
  static bool anyModified(const CSQLClause* node) { return node->m_nModified != 0; }

  int m_nOraVersion;
  detail::NodeText m_name;
  detail::NodeText m_prefix;
  bool m_bUsed = false;
  std::string m_strValue;
  std::string m_strInit;

  // The texts and links that few nodes have: kept apart, so that a plain node stays small.
  std::string_view prefixText() const { return m_prefix.str(); }
  std::string_view suffixText() const { return m_rare ? m_rare->suffix.str() : std::string_view(); }
  std::string_view postfixText() const { return m_rare ? m_rare->postfix.str() : std::string_view(); }
  void setPrefix(TreeText prefix) { m_prefix.set(prefix); }
  void setSuffix(TreeText suffix);
  void setPostfix(TreeText postfix);
  CSQLClause* linkedNode() const { return m_rare ? m_rare->linked : nullptr; }
  // A null validator accepts every value.
  SQLValidator validatorFn() const { return m_rare ? m_rare->validator : nullptr; }
  void setValidator(SQLValidator fn);
  SQLCallback afterPrefixFn() const { return m_rare ? m_rare->afterPrefix : nullptr; }
  SQLCallback afterPostfixFn() const { return m_rare ? m_rare->afterPostfix : nullptr; }

  enum class WalkOp { SetValue, SetInit, AddAttr };

 private:
  // Runs init() with the release code the node was constructed with, and hands the built leaves the
  // values held for them; from then on it is built.
  void build() const;

  // ---- a subtree not built yet (shape.cpp) ----
  // What a walk over the shape returns when it would have to enter an opaque node.
  static constexpr int kBuildFirst = -1;
  // The walk of SetValue and SetInit over the shared shape, holding the value found a leaf for;
  // kBuildFirst when the shape cannot answer (no shared shape, or an opaque node on the way).
  int walkUnbuilt(WalkOp op, const char* path, std::string_view head, const char* rest, const char* value);
  // walkSplit over the shape's nodes [first, end): the slot of the leaf that takes the value, -1 for
  // a node that accepts it without keeping it.
  static int findShaped(const detail::Shape& shape,
                        std::uint32_t first,
                        std::uint32_t end,
                        const char* path,
                        std::string_view head,
                        const char* rest,
                        const char* value,
                        int& slot);
  // SetValue(sub, value) of the shape's node `index`, by the rules of its class.
  static int enterShaped(
      const detail::Shape& shape, std::uint32_t index, const char* sub, const char* value, int& slot);
  void holdValue(WalkOp op, int slot, const char* value);
  void setHeldModified(int slot, bool modified);
  // The writer over the shape: writeChildren and GetModifiedSQL of the shape's nodes for the path "*",
  // writing at the end of `text`; the node's own text starts at `base`.
  void writeShapedChildren(std::uint32_t first, std::uint32_t end, std::string& text, std::size_t base);
  int writeShaped(std::uint32_t index, std::string& text, std::size_t base);
  // Writes the shape's node `index` after the text of its parent (from `base` on) and joins it by the
  // join rule; false when the node is quiet or writes nothing.
  bool writeShapedChild(std::uint32_t index, std::string& text, std::size_t base);
  // resetUsedAttrs over the held values.
  void resetHeld();
  // Forgets every held value (Clear).
  void dropHeld();
  // After the subtree is built: its leaves take the held values.
  static void replayHeld(CSQLClause* node,
                         const detail::Shape& shape,
                         std::uint32_t first,
                         std::uint32_t end,
                         detail::HeldValues& held,
                         std::uint64_t touched);
  // The shape shared by the nodes of `pending`'s class and release code; null when they cannot share
  // one. Made once per process from a clone of `pending`, kept as long as the process runs.
  static const detail::Shape* sharedShape(CSQLClause& pending);
  static bool flattenShape(CSQLClause& node, detail::Shape& shape, int& slots);
  void addCounts(int modified, int hooks);
  void nameChanged() { m_bContainer = m_name.str() == kContainerName; }

  struct Rare {
    static void* operator new(std::size_t size) { return detail::AllocateNode(size); }
    static void operator delete(void* block, std::size_t size) noexcept { detail::FreeNode(block, size); }
    detail::NodeText suffix;
    detail::NodeText postfix;
    CSQLClause* linked = nullptr;
    std::vector<CSQLClause*> linkers;  // the nodes whose link names this node
    SQLValidator validator = nullptr;
    SQLCallback afterPrefix = nullptr;
    SQLCallback afterPostfix = nullptr;
  };
  Rare& rare() {
    if (!m_rare) m_rare = std::make_unique<Rare>();
    return *m_rare;
  }
  void setCallback(SQLCallback cb, bool afterPostfix);

  std::unique_ptr<Rare> m_rare;
  Children m_children;
  // The values held below a node not built yet, beside its class's shape (null: none yet).
  detail::HeldValues* m_held = nullptr;
  CSQLClause* m_pParent = nullptr;
  // A node's subtree is built the first time something needs it. While it is not, this holds the
  // release code given at construction (-1 once built): gates stay those of construction even when
  // the host changes the release code in between.
  int m_nPendingCode = -1;
  // Counts over the subtree, this node included: nodes whose value differs from the initial one, and
  // nodes the writer must visit whatever their values. They make IsModified("*") one comparison and
  // let the writers pass over what is untouched.
  int m_nModified = 0;
  int m_nHooks = 0;
  bool m_bSelfModified = false;
  bool m_bSelfHook = false;
  bool m_bContainer = false;

 protected:
  // The path walk shared by SetValue, SetInit and AddAttr for a non-null path: children named by the
  // path's head get the rest, containers get the whole path, the first success ends the walk.
  int walk(WalkOp op, const char* path, const char* value, CSQLClause* node);

 private:
  // The walk with the path already split into its head and rest. A container of the library's own
  // classes would only split the same path again and walk its children: the walk enters it directly.
  int walkSplit(WalkOp op,
                const char* path,
                std::string_view head,
                const char* rest,
                const char* value,
                CSQLClause* node);
  static bool isPlainContainer(const CSQLClause* node);

 protected:
  // The tree-building vocabulary sets validators and linked clauses of the nodes it makes.
  friend class build::Node;
};

// Text helpers shared by the writer and the information model: white space is what
// std::isspace says (blank, tab, line breaks).
void TrimLeft(std::string& text);
void TrimRight(std::string& text);
void Trim(std::string& text);

}  // namespace qarvelt

#endif  // QARVELT_CORE_CLAUSE_H
