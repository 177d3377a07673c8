// Containers group leaves and clauses without adding a level to attribute paths: every container is
// named "CONTAINER", and path walks pass through it. A container writes its prefix, its children and
// its postfix; a container with nothing written inside writes nothing at all, not even its brackets.
//
//   CSQLContAND: every modified child is written, in order ("(" ... ")" around a column's sizes).
//   CSQLContOR:  the children are alternatives; one writing pass writes the first one that has text.
//                The host writes again after RefreshUsed() while hasUnused() is true, and so gets the
//                other alternatives one pass at a time.
#ifndef QARVELT_CORE_CONTAINER_H
#define QARVELT_CORE_CONTAINER_H

#include "qarvelt/core/clause.h"

namespace qarvelt {

class CSQLContainer : public CSQLClause {
 public:
  explicit CSQLContainer(bool bInit = true, int nOraVersion = kLatestRelease);

  // Every child is written with the whole path, one blank between the pieces; the result is always 0.
  int GetModifiedSQL(const char* path, std::string& text) override;
  // A container holds no value: with a null path these return 4; with a path they walk the children.
  int SetValue(const char* path, const char* value) override;
  int SetInit(const char* path, const char* value) override;
  // A container cannot be fetched by itself: a null path gives null.
  CSQLClause* GetClause(const char* path) override;
  bool IsModified(const char* path) override;
  CSQLClause* operator*() override;

 protected:
  // Prefix first; the postfix only when something was written after the prefix, else no text at all.
  int preModifiedSQL(const char* path, std::string& text) override;
  int postModifiedSQL(const char* path, std::string& text) override;
  // It reports text even when it has none, so the writers never pass over it.
  bool writesUnmodified() const override { return true; }
};

class CSQLContAND : public CSQLContainer {
 public:
  CSQLContAND(const char* prefix, const char* postfix);
  // The shell used by clones; the argument has no effect and the release code stays the latest.
  explicit CSQLContAND(bool bInit = true);

  std::string GetSubType() override;
  int GetModifiedSQL(const char* path, std::string& text) override;
  CSQLClause* operator*() override;

 protected:
  bool writesUnmodified() const override { return false; }
};

class CSQLContOR : public CSQLContainer {
 public:
  CSQLContOR(const char* prefix, const char* postfix);
  explicit CSQLContOR(bool bInit = true);

  std::string GetSubType() override;
  // Writes the first alternative (in tree order) that has something to write, and only that one.
  int GetModifiedSQL(const char* path, std::string& text) override;
  // Withdraws the changes that the last pass wrote, so that the next pass writes the next alternative.
  void RefreshUsed() override;
  CSQLClause* operator*() override;

 protected:
  bool writesUnmodified() const override { return false; }
};

}  // namespace qarvelt

#endif  // QARVELT_CORE_CONTAINER_H
