// The heads of statement trees.
//
// Every CREATE statement class derives from CreateStatement, which opens its text with "CREATE"; the
// tree writes the rest. A CREATE statement with nothing filled in still writes CREATE (the head
// counts as text).
//
// ALTER statements derive from AlterStatement, which opens the text with the verb (Derived::kVerb,
// "ALTER TABLE") and, once the tree is written, empties a text that holds nothing but the head:
// the verb alone, or the verb with "SCHEMA" + "." + the name leaf (Derived::kNameLeaf), or the verb
// with the name alone (no schema written). An ALTER that alters nothing is never written.
//
// DROP statements derive from DropStatement, which opens the text with the verb the class gives
// (verb(), "DROP TABLE") and writes nothing at all when the name of what is dropped
// (Derived::kNameLeaf) is not set.
#ifndef QARVELT_STATEMENTS_STATEMENT_H
#define QARVELT_STATEMENTS_STATEMENT_H

#include <string>

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// Sets the text to "CREATE": the head routine shared by every CREATE statement.
int WriteCreateHead(std::string& text);

template <class Derived>
class CreateStatement : public Cloneable<Derived> {
 protected:
  explicit CreateStatement(int nOraVersion) : Cloneable<Derived>(nOraVersion) {}
  int preModifiedSQL(const char* /*path*/, std::string& text) override { return WriteCreateHead(text); }
  bool writesUnmodified() const override { return true; }
};

// The ALTER head steps, for statements that cannot derive from AlterStatement.
int WriteAlterHead(std::string& text, const char* verb);
int DropEmptyAlter(CSQLClause& root, std::string& text, const char* verb, const char* nameLeaf);

template <class Derived>
class AlterStatement : public Cloneable<Derived> {
 protected:
  explicit AlterStatement(int nOraVersion) : Cloneable<Derived>(nOraVersion) {}
  int preModifiedSQL(const char* /*path*/, std::string& text) override {
    return WriteAlterHead(text, Derived::kVerb);
  }
  int postModifiedSQL(const char* /*path*/, std::string& text) override {
    return DropEmptyAlter(*this, text, Derived::kVerb, Derived::kNameLeaf);
  }
  bool writesUnmodified() const override { return true; }
};

// The DROP head steps.
int DropNameless(CSQLClause& root, std::string& text, const char* nameLeaf);

template <class Derived>
class DropStatement : public Cloneable<Derived> {
 protected:
  explicit DropStatement(int nOraVersion) : Cloneable<Derived>(nOraVersion) {}
  int preModifiedSQL(const char* /*path*/, std::string& text) override {
    return WriteAlterHead(text, static_cast<const Derived*>(this)->verb());
  }
  int postModifiedSQL(const char* /*path*/, std::string& text) override {
    return DropNameless(*this, text, Derived::kNameLeaf);
  }
  bool writesUnmodified() const override { return true; }
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_STATEMENT_H
