// DROP statements of the objects a schema holds. Each opens with its verb and writes nothing until
// the name of what it drops is set; SCHEMA (written with a dot) qualifies the name. IF_EXISTS
// ("IF EXISTS") is there from release code 12 (Oracle 23ai).
//
//   CSQLDropTable drop(true, 10);
//   drop.SetValue("SCHEMA", "HR");
//   drop.SetValue("TABLE", "JOBS");
//   drop.SetValue("CASCADE", "CASCADE CONSTRAINTS");   // DROP TABLE HR.JOBS CASCADE CONSTRAINTS
#ifndef QARVELT_STATEMENTS_DROP_H
#define QARVELT_STATEMENTS_DROP_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

// TABLE, then CASCADE ("CASCADE CONSTRAINTS") and PURGE (Oracle 10g).
class CSQLDropTable : public DropStatement<CSQLDropTable> {
 public:
  explicit CSQLDropTable(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "TABLE";
  const char* verb() const { return "DROP TABLE"; }

 protected:
  void init() override;
};

// INDEX, then FORCE (a domain index, Oracle8i) or ONLINE (Oracle 12c).
class CSQLDropIndex : public DropStatement<CSQLDropIndex> {
 public:
  explicit CSQLDropIndex(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "INDEX";
  const char* verb() const { return "DROP INDEX"; }

 protected:
  void init() override;
};

// VIEW, then CASCADE ("CASCADE CONSTRAINTS", Oracle9i, when views took constraints).
class CSQLDropView : public DropStatement<CSQLDropView> {
 public:
  explicit CSQLDropView(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "VIEW";
  const char* verb() const { return "DROP VIEW"; }

 protected:
  void init() override;
};

// SEQUENCE.
class CSQLDropSequence : public DropStatement<CSQLDropSequence> {
 public:
  explicit CSQLDropSequence(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "SEQUENCE";
  const char* verb() const { return "DROP SEQUENCE"; }

 protected:
  void init() override;
};

// PUBLIC ("PUBLIC") before SYNONYM, then SYNONYM and FORCE (Oracle 11g): DROP PUBLIC SYNONYM S.
class CSQLDropSynonym : public DropStatement<CSQLDropSynonym> {
 public:
  explicit CSQLDropSynonym(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "SYNONYM";
  const char* verb() const { return "DROP"; }

 protected:
  void init() override;
};

// VIEW, then PRESERVE ("PRESERVE TABLE", Oracle 10g); DROP SNAPSHOT before Oracle8i.
class CSQLDropMaterializedView : public DropStatement<CSQLDropMaterializedView> {
 public:
  explicit CSQLDropMaterializedView(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "VIEW";
  const char* verb() const;

 protected:
  void init() override;
};

// TRIGGER.
class CSQLDropTrigger : public DropStatement<CSQLDropTrigger> {
 public:
  explicit CSQLDropTrigger(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "TRIGGER";
  const char* verb() const { return "DROP TRIGGER"; }

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_DROP_H
