// Column information: a table's columns (CSQLInfoColumns with its CColumn items), each with its
// inline constraint (CColumn::CONSTRAINT(), a CSQLInfoColumns::CConstraint with its state).
//
// Collection values: "DROP;CASCADE" (CASCADE, written CASCADE CONSTRAINTS), "DROP;INVALIDATE"
// (INVALIDATE) and "DROP;CHECKPOINT" (a row count): the options of DROP and SET UNUSED.
// Column values: "NAME" (a changed name is a rename), "DATATYPE", "LENGTH", "SCALE", "DEFAULT", the
// LOB storage of a LOB column ("LOB;TABLESPACE", "LOB;ENABLE" (ENABLE or DISABLE, written with
// STORAGE IN ROW), "LOB;CHUNK", "LOB;PCTVERSION", "LOB;RETENTION", "LOB;FREEPOOLS", "LOB;CACHE",
// "LOB;READS", "LOB;LOGGING", "LOB;PCTFREE", "LOB;PCTUSED", "LOB;INITRANS", "LOB;MAXTRANS",
// "LOB;INITIAL", "LOB;NEXT", "LOB;MINEXTENTS", "LOB;MAXEXTENTS", "LOB;BUFFER_POOL", "LOB;FREELIST",
// "LOB;FREELISTS", "LOB;PCTINCREASE") and "COMMENTS" (kept, never scripted).
// Inline constraint values: "NAME", "NULL" (NULL or NOT NULL), "UNIQUE", "PRIMARY" (PRIMARY),
// "CHECK" (the condition), and its state.
//
// BuildSQL, on the "C_COLUMN" clause of an ALTER TABLE statement, runs in this order:
//   1. added columns go into one ADD ( ... ) clause, with LOB storage for LOB columns, and stay in
//      the tree;
//   2. changed columns that keep their name go into one MODIFY ( ... ) clause (a changed type is
//      restated whole: type, length, scale), and stay in the tree; changed LOB storage goes into
//      MODIFY LOB items of "LIST_LOB", written in a later pass of the statement;
//   3. one statement per renamed column: RENAME COLUMN old TO new (a renamed column's other changes
//      wait for the next run);
//   4. one statement for all dropped columns: DROP (A,B) [CASCADE CONSTRAINTS] [CHECKPOINT n];
//   5. one statement for all columns set unused: SET UNUSED (C) [CASCADE CONSTRAINTS].
// The selectors "ADD", "MOD" and "RENAME" run one step; "DROP" runs none.
#ifndef QARVELT_INFO_COLUMNS_H
#define QARVELT_INFO_COLUMNS_H

#include "qarvelt/info/base.h"
#include "qarvelt/info/constraints.h"

namespace qarvelt {

// The inline constraint of a column (CSQLInfoColumns::CConstraint).
class CSQLInfoColumnConstraint : public CSQLInfoBase {
 public:
  CSQLInfoColumnConstraint();

  CSQLPUBLIC::CConstraintState* STATE() { return &m_state; }

  // Appends an inline constraint item to the "LIST" of `clause` (a column item) when there is
  // something to write: with "ADD" every value set, otherwise the changes. 2 when nothing was added.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;
  bool IsModified(const char* type = nullptr) override;
  void Reset() override;

 protected:
  void init() override;

 private:
  CSQLPUBLIC::CConstraintState m_state;
};

// One column (CSQLInfoColumns::CColumn); its name is the column's name as the record was loaded.
class CSQLInfoColumn : public CSQLInfoBase {
 public:
  explicit CSQLInfoColumn(const char* name);

  CSQLInfoColumnConstraint* CONSTRAINT() { return &m_constraint; }
  // Whether the column's type is BLOB, CLOB, NCLOB or BFILE.
  bool IsLOB();

  // Fills a column item: "ADD" an added column (CSQLClauseAddColumn::CSubSQLClauseColumn), "MOD" a
  // modified one (CSQLClauseModifyColProp::CSubSQLClauseColumn). LOB storage goes to `statement`.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;
  bool IsModified(const char* type = nullptr) override;
  void Reset() override;

 protected:
  void init() override;

 private:
  void addLOBStorage(CSQLClause* statement);
  void modifyLOBStorage(CSQLClause* statement);

  CSQLInfoColumnConstraint m_constraint;
};

class CSQLInfoColumns : public CSQLInfoCollection<CSQLInfoColumn> {
 public:
  using CColumn = CSQLInfoColumn;
  using CConstraint = CSQLInfoColumnConstraint;

  CSQLInfoColumns();

  int AddColumn(const char* name, bool existing);
  // Marks the column dropped (2) or set unused (4), or removes it outright; 4 for an unknown name.
  int DropColumn(const char* name, bool remove, bool unused);
  // Takes back a drop or a set-unused mark.
  int UnDropColumn(const char* name);
  CColumn* GetColumn(int index) const { return itemAt(index); }
  CColumn* GetColumn(const char* name) const { return itemNamed(name); }
  bool IsUnused(int index) const { return markAt(index) == ITEM_UNUSED; }
  bool IsUnused(const char* name) const { return markAt(indexOf(name)) == ITEM_UNUSED; }

  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;

 protected:
  void init() override;

 private:
  int addStep(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out);
  int modifyStep(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out);
  int renameStep(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out);
  int dropStep(int mark, CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out);
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_COLUMNS_H
