// CREATE TABLE and ALTER TABLE into table descriptions.
#include <algorithm>
#include <set>

#include "readers.h"

namespace qarvelt::ddl {

namespace {

using model::Column;
using model::Constraint;
using model::Partition;
using model::Table;

// Words that end a column's default or a constraint's condition written without brackets.
const std::initializer_list<std::string_view> kColumnStops = {
    "NOT", "NULL", "CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK", "REFERENCES", "ENABLE", "DISABLE", "COLLATE"};

// A data type: its name as the catalogue has it, and its sizes.
void readDataType(Parser& p, Column& c) {
  std::string type = p.Identifier("a data type");
  auto sizes = [&](bool scale, bool unit) {
    if (!p.AcceptOp("(")) return;
    c.length = p.IsOp("*") ? p.Take().text : p.Integer("a length or precision");
    if (scale && p.AcceptOp(",")) c.scale = p.Integer("a scale");
    if (unit && (p.IsWord("BYTE") || p.IsWord("CHAR"))) c.unit = p.Take().value;
    p.ExpectOp(")");
  };
  // The precisions of datetime and interval types. The default one, which Oracle's exports write,
  // is left out as the description leaves it out.
  auto precision = [&](const char* fallback) {
    if (!p.AcceptOp("(")) return std::string();
    const std::string n = p.Integer("a precision");
    p.ExpectOp(")");
    return n == fallback ? std::string() : n;
  };
  if (type == "LONG" && p.Accept("RAW")) type = "LONG RAW";
  if (type == "DOUBLE" && p.Accept("PRECISION")) type = "FLOAT";
  if (type == "CHARACTER" && p.Accept("VARYING")) type = "VARCHAR2";
  if (type == "INT") type = "INTEGER";
  if (type == "TIMESTAMP") {
    std::string fraction;
    if (p.AcceptOp("(")) {
      fraction = p.Integer("a precision");
      p.ExpectOp(")");
    }
    if (p.Accept("WITH")) {
      type = p.Accept("LOCAL") ? "TIMESTAMP WITH LOCAL TIME ZONE" : "TIMESTAMP WITH TIME ZONE";
      p.Expect("TIME");
      p.Expect("ZONE");
      if (fraction == "6") fraction.clear();
    }
    c.length = fraction;
  } else if (type == "INTERVAL") {
    if (p.Accept("YEAR")) {
      c.length = precision("2");
      p.Expect("TO");
      p.Expect("MONTH");
      type = "INTERVAL YEAR TO MONTH";
    } else {
      p.Expect("DAY");
      c.length = precision("2");
      p.Expect("TO");
      p.Expect("SECOND");
      c.scale = precision("6");
      type = "INTERVAL DAY TO SECOND";
    }
  } else if (type == "VECTOR") {
    if (p.AcceptOp("(")) {
      c.length = p.IsOp("*") ? p.Take().text : p.Integer("a number of dimensions");
      if (p.AcceptOp(",")) c.scale = p.IsOp("*") ? p.Take().text : p.Identifier("a vector format");
      p.ExpectOp(")");
    }
  } else if (type == "VARCHAR2" || type == "CHAR" || type == "VARCHAR") {
    sizes(false, true);
  } else {
    sizes(type == "NUMBER" || type == "DECIMAL" || type == "NUMERIC", false);
  }
  c.type = type;
}

// The words that may follow USING INDEX of a key without naming an index: the index's attributes
// and the constraint's state.
constexpr std::string_view kAfterUsingIndex[] = {
    "PCTFREE", "INITRANS", "MAXTRANS",  "STORAGE",    "TABLESPACE", "COMPUTE",    "LOCAL",
    "GLOBAL",  "LOGGING",  "NOLOGGING", "ENABLE",     "DISABLE",    "VALIDATE",   "NOVALIDATE",
    "RELY",    "NORELY",   "NOT",       "DEFERRABLE", "INITIALLY",  "EXCEPTIONS", "USING"};

// The state of a constraint, as far as the description keeps it; the USING INDEX clause keeps its
// index name and tablespace.
void readState(Parser& p, model::ConstraintState& s) {
  for (;;) {
    if (p.AcceptWords({"NOT", "DEFERRABLE"})) {
      s.deferrable = "NOT DEFERRABLE";
    } else if (p.Accept("DEFERRABLE")) {
      s.deferrable = "DEFERRABLE";
    } else if (p.Accept("INITIALLY")) {
      s.initially = p.ExpectOneOf({"IMMEDIATE", "DEFERRED"});
    } else if (p.IsWord("RELY") || p.IsWord("NORELY")) {
      s.rely = p.Take().value;
    } else if (p.IsWord("ENABLE") || p.IsWord("DISABLE")) {
      s.enable = p.Take().value;
    } else if (p.IsWord("VALIDATE") || p.IsWord("NOVALIDATE")) {
      s.validate = p.Take().value;
    } else if (p.Accept("USING")) {
      p.Expect("INDEX");
      if (p.IsOp("(")) {
        p.FailAt(p.Peek(), "USING INDEX (CREATE INDEX ...) cannot be described: create the index first");
      }
      // An index's name, unless the words that follow are its attributes or the constraint's state
      // ("USING INDEX ENABLE", as the export writes a key whose index has no attributes of note).
      const bool keyword = std::any_of(std::begin(kAfterUsingIndex),
                                       std::end(kAfterUsingIndex),
                                       [&](auto word) { return p.IsWord(word); });
      if (p.Peek().Is(TokenKind::QuotedIdentifier) || (p.Peek().Is(TokenKind::Identifier) && !keyword)) {
        const Name index = p.QualifiedName("an index name");
        s.index_schema = index.schema;
        s.index_name = index.name;
        continue;
      }
      const Token& at = p.Peek();
      model::Segment ignored;
      bool dropped = false;
      for (;;) {
        if (ReadSegment(p, ignored)) {
          dropped = true;
        } else if (p.Accept("TABLESPACE")) {
          s.index_tablespace = p.Identifier("a tablespace");
        } else if (p.AcceptWords({"COMPUTE", "STATISTICS"}) || p.Accept("LOGGING") || p.Accept("NOLOGGING")) {
        } else {
          break;
        }
      }
      if (dropped)
        p.Note(at, "the physical attributes of the key's index are not kept (only its tablespace)");
    } else if (p.AcceptWords({"EXCEPTIONS", "INTO"})) {
      p.QualifiedName("a table");
    } else {
      return;
    }
  }
}

void readReferences(Parser& p, Constraint& k) {
  p.Expect("REFERENCES");
  const Name target = p.QualifiedName("the referenced table");
  k.ref_schema = target.schema;
  k.ref_table = target.name;
  if (p.IsOp("(")) k.ref_columns = p.NameList();
  if (p.AcceptWords({"ON", "DELETE"}))
    k.on_delete = p.AcceptWords({"SET", "NULL"}) ? "SET NULL" : (p.Expect("CASCADE"), "CASCADE");
}

// PRIMARY KEY (...), UNIQUE (...), FOREIGN KEY (...) REFERENCES ..., CHECK (...), after an optional
// CONSTRAINT name.
Constraint readOutOfLine(Parser& p) {
  Constraint k;
  if (p.Accept("CONSTRAINT")) k.name = p.Identifier("a constraint name");
  if (p.AcceptWords({"PRIMARY", "KEY"})) {
    k.type = "PRIMARY KEY";
    k.columns = p.NameList();
  } else if (p.Accept("UNIQUE")) {
    k.type = "UNIQUE";
    k.columns = p.NameList();
  } else if (p.AcceptWords({"FOREIGN", "KEY"})) {
    k.type = "FOREIGN KEY";
    k.columns = p.NameList();
    readReferences(p, k);
  } else if (p.Accept("CHECK")) {
    k.type = "CHECK";
    p.ExpectOp("(");
    k.check = p.Expression({}, "a condition");
    p.ExpectOp(")");
  } else {
    p.Fail("PRIMARY KEY, UNIQUE, FOREIGN KEY or CHECK");
  }
  readState(p, k.state);
  return k;
}

// A key added to a table that has an index on the key's columns (its leading columns, in any order)
// takes that index, as Oracle does: an export creates the index first and adds the key after it.
Constraint keyOfExistingTable(Constraint k, const Table& t) {
  for (const model::Index& x : t.indexes) {
    if (TakeIndexForKey(k, x)) break;
  }
  return k;
}

// Drops the constraint a column names inline: its key or check, or its NOT NULL when that is all it
// declares (as CREATE TABLE writes the name before the first of them).
void dropInlineConstraint(Column& c) {
  if (c.primary_key) {
    c.primary_key = false;
  } else if (c.unique) {
    c.unique = false;
  } else if (!c.check.empty()) {
    c.check.clear();
  } else {
    c.not_null = false;
  }
  c.constraint_name.clear();
}

// What a column clause of ALTER TABLE ... MODIFY said beyond the column's definition: the words that
// set something back (NULL, VISIBLE) and which identity options it gave.
struct ColumnWords {
  bool nullable = false, visible = false, defaulted = false, typed = false;
  std::set<std::string> identityOptions;
};

// The words that begin an identity option.
constexpr std::string_view kIdentityOptions[] = {"START",
                                                 "INCREMENT",
                                                 "MAXVALUE",
                                                 "MINVALUE",
                                                 "CACHE",
                                                 "NOCACHE",
                                                 "CYCLE",
                                                 "NOCYCLE",
                                                 "ORDER",
                                                 "NOORDER",
                                                 "NOMAXVALUE",
                                                 "NOMINVALUE",
                                                 "NOKEEP",
                                                 "NOSCALE"};

// The options of an identity clause, in brackets as the syntax has them, or bare, one after the
// other, as the database's own export writes them.
void readIdentityOptions(Parser& p, model::Identity& id, ColumnWords* words) {
  const bool bracketed = p.AcceptOp("(");
  auto more = [&] {
    if (bracketed) return !p.AcceptOp(")");
    return std::any_of(std::begin(kIdentityOptions), std::end(kIdentityOptions), [&](std::string_view word) {
      return p.IsWord(word);
    });
  };
  while (more()) {
    if (words != nullptr) words->identityOptions.insert(p.Peek().value);
    if (p.AcceptWords({"START", "WITH"})) {
      id.start_with = p.Integer();
    } else if (p.AcceptWords({"INCREMENT", "BY"})) {
      id.increment_by = p.Integer();
    } else if (p.Accept("MAXVALUE")) {
      id.maxvalue = ReadSequenceBound(p);
    } else if (p.Accept("MINVALUE")) {
      id.minvalue = ReadSequenceBound(p);
    } else if (p.Accept("CACHE")) {
      id.cache = p.Integer();
    } else if (p.Accept("NOCACHE")) {
      id.nocache = true;
    } else if (p.IsWord("CYCLE") || p.IsWord("NOCYCLE")) {
      id.cycle = p.Take().value;
    } else if (p.IsWord("ORDER") || p.IsWord("NOORDER")) {
      id.order = p.Take().value;
    } else if (p.Accept("NOMAXVALUE") || p.Accept("NOMINVALUE") || p.Accept("NOKEEP") ||
               p.Accept("NOSCALE")) {
    } else {
      p.Fail("an identity option");
    }
    if (bracketed) p.AcceptOp(",");
  }
}

// An identity clause of ALTER TABLE ... MODIFY: the options it names replace the column's, and one
// set back to Oracle's default (NOMAXVALUE, INCREMENT BY 1, CACHE 20, NOCYCLE, NOORDER) is left out.
void mergeIdentity(model::Identity& now, const model::Identity& with, const std::set<std::string>& named) {
  now.generated = with.generated;
  auto take = [&](const char* option, std::string& to, const std::string& from, const char* fallback) {
    if (named.count(option) != 0) to = from == fallback ? "" : from;
  };
  take("START", now.start_with, with.start_with, "");
  take("INCREMENT", now.increment_by, with.increment_by, "1");
  take("MAXVALUE", now.maxvalue, with.maxvalue, "");
  take("MINVALUE", now.minvalue, with.minvalue, "");
  if (named.count("NOMAXVALUE") != 0) now.maxvalue.clear();
  if (named.count("NOMINVALUE") != 0) now.minvalue.clear();
  if (named.count("CACHE") != 0) {
    now.cache = with.cache == "20" ? "" : with.cache;
    now.nocache = false;
  }
  if (named.count("NOCACHE") != 0) {
    now.cache.clear();
    now.nocache = true;
  }
  for (const char* o : {"CYCLE", "NOCYCLE"})
    take(o, now.cycle, with.cycle, "NOCYCLE");
  for (const char* o : {"ORDER", "NOORDER"})
    take(o, now.order, with.order, "NOORDER");
}

// A column definition, with its inline constraints; a foreign key or a second named constraint goes
// among the table's constraints.
void readColumn(Parser& p, Table& t, ColumnWords* words = nullptr) {
  Column c;
  c.name = p.Identifier("a column name");
  // The data type, unless what follows is already a column attribute (ALTER TABLE ... MODIFY (c NOT
  // NULL), a virtual column without its type).
  bool typed = !p.AtEnd() && !p.IsOp(",") && !p.IsOp(")");
  for (std::string_view word : {"GENERATED", "AS", "DEFAULT", "VISIBLE", "INVISIBLE"})
    typed = typed && !p.IsWord(word);
  for (std::string_view word : kColumnStops)
    typed = typed && !p.IsWord(word);
  if (typed) readDataType(p, c);
  if (words != nullptr) words->typed = typed;
  for (;;) {
    const Token& at = p.Peek();
    if (p.Accept("VISIBLE")) {
      if (words != nullptr) words->visible = true;
    } else if (p.Accept("SORT")) {
    } else if (p.Accept("INVISIBLE")) {
      c.invisible = true;
    } else if (p.Accept("COLLATE")) {
      c.collation = p.Identifier("a collation");
    } else if (p.Accept("DEFAULT")) {
      if (words != nullptr) words->defaulted = true;
      if (p.AcceptWords({"ON", "NULL"})) c.default_on_null = true;
      c.default_value = p.Expression(kColumnStops, "a default");
    } else if (p.Accept("GENERATED")) {
      if (p.Accept("ALWAYS")) {
        c.identity.generated = "ALWAYS";
      } else {
        p.Expect("BY");
        p.Expect("DEFAULT");
        c.identity.generated = p.AcceptWords({"ON", "NULL"}) ? "BY DEFAULT ON NULL" : "BY DEFAULT";
      }
      p.Expect("AS");
      if (p.Accept("IDENTITY")) {
        readIdentityOptions(p, c.identity, words);
      } else {
        if (c.identity.generated != "ALWAYS") p.Fail("IDENTITY");
        c.identity.generated.clear();
        p.ExpectOp("(");
        c.virtual_expr = p.Expression({}, "the virtual column's expression");
        p.ExpectOp(")");
        p.Accept("VIRTUAL");
      }
    } else if (p.Accept("AS")) {
      p.ExpectOp("(");
      c.virtual_expr = p.Expression({}, "the virtual column's expression");
      p.ExpectOp(")");
      p.Accept("VIRTUAL");
    } else if (p.Accept("ENCRYPT")) {
      p.Warn(at, "column " + c.name + ": ENCRYPT is not kept");
      p.SkipClause(kColumnStops);
    } else if (p.IsWord("ANNOTATIONS") && p.IsOp("(", 1)) {
      // Oracle 23ai: metadata for applications, no part of the column's definition.
      p.Take();
      p.Warn(at, "column " + c.name + ": ANNOTATIONS are not kept");
      p.SkipBrackets();
    } else {
      std::string name;
      const bool named = p.Accept("CONSTRAINT");
      if (named) name = p.Identifier("a constraint name");
      auto keep = [&](bool& flag) {
        flag = true;
        if (!named) return;
        if (c.constraint_name.empty()) {
          c.constraint_name = name;
          return;
        }
        p.FailAt(at, "column " + c.name + " has two named inline constraints; write one of them out of line");
      };
      model::ConstraintState state;
      if (p.AcceptWords({"NOT", "NULL"})) {
        keep(c.not_null);
      } else if (p.Accept("NULL")) {
        if (words != nullptr) words->nullable = true;
      } else if (p.AcceptWords({"PRIMARY", "KEY"})) {
        keep(c.primary_key);
      } else if (p.Accept("UNIQUE")) {
        keep(c.unique);
      } else if (p.Accept("CHECK")) {
        bool given = false;
        keep(given);
        p.ExpectOp("(");
        c.check = p.Expression({}, "a condition");
        p.ExpectOp(")");
      } else if (p.IsWord("REFERENCES")) {
        Constraint k;
        k.name = name;
        k.type = "FOREIGN KEY";
        k.columns = {c.name};
        readReferences(p, k);
        readState(p, k.state);
        t.constraints.push_back(k);
        continue;
      } else if (named) {
        p.Fail("a constraint");
      } else {
        break;
      }
      readState(p, state);
      if (state.enable == "DISABLE" || state.validate == "NOVALIDATE" || state.deferrable == "DEFERRABLE" ||
          !state.index_name.empty() || !state.index_tablespace.empty()) {
        p.Warn(
            at,
            "column " + c.name + ": the state of an inline constraint is not kept; declare it out of line");
      }
    }
  }
  t.columns.push_back(std::move(c));
}

bool readLobParameters(Parser& p, model::LobStorage& lob) {
  const Token& at = p.Peek();
  if (p.Accept("TABLESPACE")) {
    lob.tablespace = p.Identifier("a tablespace");
  } else if (p.AcceptWords({"ENABLE", "STORAGE", "IN", "ROW"})) {
    lob.in_row = "ENABLE";
  } else if (p.AcceptWords({"DISABLE", "STORAGE", "IN", "ROW"})) {
    lob.in_row = "DISABLE";
  } else if (p.Accept("CHUNK")) {
    lob.chunk = p.Integer();
  } else if (p.Accept("PCTVERSION")) {
    lob.pctversion = p.Integer();
  } else if (p.Accept("RETENTION")) {
    lob.retention = "RETENTION";
    if (p.IsWord("AUTO") || p.IsWord("NONE") || p.IsWord("MIN") || p.IsWord("MAX")) {
      p.Take();
      if (p.Peek().Is(TokenKind::Number)) p.Take();
    }
  } else if (p.AcceptWords({"CACHE", "READS"})) {
    lob.cache = "CACHE READS";
  } else if (p.Accept("CACHE") || p.Accept("NOCACHE")) {
    lob.cache = at.value;
  } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
    // A cached LOB is always logged: LOGGING after CACHE says nothing, NOLOGGING contradicts it.
    // Alone, a logging clause goes with the default, NOCACHE.
    const Token& logging = p.Take();
    if (lob.cache == "CACHE" && logging.value == "NOLOGGING")
      p.FailAt(logging, "NOLOGGING does not go with CACHE: a cached LOB is always logged");
    if (lob.cache == "CACHE") return true;
    if (lob.cache.empty()) lob.cache = "NOCACHE";
    lob.logging = logging.value;
  } else if (p.Accept("STORAGE")) {
    p.Note(at, "the STORAGE clause of a LOB segment is not kept");
    p.SkipBrackets();
  } else if (p.Accept("INDEX")) {
    p.Note(at, "the LOB index clause is not kept");
    if (!p.IsOp("(")) p.Identifier();
    p.SkipBrackets();
  } else if (p.Accept("NOCOMPRESS") || p.Accept("KEEP_DUPLICATES") || p.AcceptWords({"ENCRYPT"}) ||
             p.Accept("DECRYPT")) {
  } else {
    return false;
  }
  return true;
}

// LOB (a, b) STORE AS [SECUREFILE | BASICFILE] [segment] (parameters).
void readLobStorage(Parser& p, Table& t, std::vector<model::PartitionLob>* partition) {
  const std::vector<std::string> columns = p.NameList();
  p.Expect("STORE");
  p.Expect("AS");
  const Token& at = p.Peek();
  if (p.Accept("SECUREFILE")) p.Note(at, "SECUREFILE is not kept (Oracle's default from 12c)");
  if (p.Accept("BASICFILE")) {
    p.Note(at,
           "BASICFILE is not kept: from Oracle 12c the LOB is created as SECUREFILE where the database "
           "prefers it");
  }
  model::LobStorage lob;
  if (!p.IsOp("(")) lob.segment = p.Identifier("a LOB segment name");
  if (p.AcceptOp("(")) {
    while (!p.AcceptOp(")")) {
      if (!readLobParameters(p, lob)) p.Fail("a LOB storage parameter");
    }
  }
  // What the clause gives replaces what was there; the rest stays (MOVE ... LOB ... STORE AS).
  auto merge = [&](model::LobStorage& into) {
    for (auto [to, from] : {std::pair{&into.tablespace, &lob.tablespace},
                            {&into.chunk, &lob.chunk},
                            {&into.pctversion, &lob.pctversion},
                            {&into.segment, &lob.segment},
                            {&into.cache, &lob.cache},
                            {&into.logging, &lob.logging},
                            {&into.in_row, &lob.in_row},
                            {&into.retention, &lob.retention}}) {
      if (!from->empty()) *to = *from;
    }
    if (lob.cache == "CACHE" && lob.logging.empty()) into.logging.clear();  // CACHE is always logged
  };
  for (const std::string& name : columns) {
    if (partition != nullptr) {
      auto found = std::find_if(partition->begin(), partition->end(), [&](const model::PartitionLob& l) {
        return l.column == name;
      });
      if (found == partition->end()) found = partition->insert(partition->end(), {name, {}});
      merge(found->storage);
      continue;
    }
    auto column =
        std::find_if(t.columns.begin(), t.columns.end(), [&](const Column& c) { return c.name == name; });
    if (column == t.columns.end())
      p.FailAt(at, "LOB storage of " + name + ", which is no column of the table");
    merge(column->lob);
  }
}

// PARALLEL [n], PARALLEL (DEGREE n) as Oracle before 9i wrote it, or NOPARALLEL.
bool readParallel(Parser& p, std::string& parallel) {
  if (p.Accept("NOPARALLEL")) {
    parallel = "NOPARALLEL";
  } else if (p.Accept("PARALLEL")) {
    parallel = p.Peek().Is(TokenKind::Number) ? p.Integer() : "PARALLEL";
    if (p.AcceptOp("(")) {
      p.Expect("DEGREE");
      parallel = p.Integer();
      p.ExpectOp(")");
    }
  } else {
    return false;
  }
  return true;
}

// A compression clause, when one comes next: its keyword text as the description keeps it.
bool readCompression(Parser& p, std::string& compress) {
  if (p.Accept("NOCOMPRESS")) {
    compress = "NOCOMPRESS";
  } else if (p.AcceptWords({"ROW", "STORE", "COMPRESS"})) {
    compress = p.Accept("ADVANCED") ? "ROW STORE COMPRESS ADVANCED" : (p.Accept("BASIC"), "COMPRESS BASIC");
  } else if (p.AcceptWords({"COLUMN", "STORE", "COMPRESS", "FOR"})) {
    const std::string kind = p.ExpectOneOf({"QUERY", "ARCHIVE"});
    const std::string level = p.IsWord("LOW") || p.IsWord("HIGH") ? p.Take().value : "HIGH";
    compress = "COLUMN STORE COMPRESS FOR " + kind + " " + level;
    p.AcceptWords({"NO", "ROW", "LEVEL", "LOCKING"});
  } else if (p.Accept("COMPRESS")) {
    compress = "COMPRESS";
    if (p.Accept("BASIC")) compress = "COMPRESS BASIC";
    if (p.AcceptWords({"FOR", "OLTP"}) || p.AcceptWords({"FOR", "ALL", "OPERATIONS"}))
      compress = "COMPRESS FOR OLTP";
    if (p.AcceptWords({"FOR", "DIRECT_LOAD", "OPERATIONS"})) compress = "COMPRESS BASIC";
  } else {
    return false;
  }
  return true;
}

// The attributes of a partition or subpartition.
void readPartitionAttributes(Parser& p, Table& t, Partition& part) {
  for (;;) {
    const Token& at = p.Peek();
    if (ReadSegment(p, part.segment)) {
    } else if (p.Accept("TABLESPACE")) {
      part.tablespace = p.Identifier("a tablespace");
    } else if (p.Accept("INDEXING")) {
      part.indexing = p.ExpectOneOf({"ON", "OFF"});
    } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
      part.logging = p.Take().value;
    } else if (readCompression(p, part.compress)) {
    } else if (p.Accept("LOB")) {
      readLobStorage(p, t, &part.lobs);
    } else if (p.AcceptWords({"SEGMENT", "CREATION"})) {
      p.ExpectOneOf({"IMMEDIATE", "DEFERRED"});
    } else if (p.IsWord("READ") && (p.IsWord("ONLY", 1) || p.IsWord("WRITE", 1))) {
      p.Warn(at, "READ ONLY / READ WRITE of a partition is not kept");
      p.Take();
      p.Take();
    } else {
      return;
    }
  }
}

// VALUES LESS THAN (...) or VALUES (...): the bounds, each as written.
std::vector<std::string> readBounds(Parser& p) {
  std::vector<std::string> bounds;
  p.ExpectOp("(");
  do {
    bounds.push_back(p.Expression({}, "a bound"));
  } while (p.AcceptOp(","));
  p.ExpectOp(")");
  return bounds;
}

Partition readPartition(Parser& p, Table& t, const std::string& type, const char* keyword) {
  Partition part;
  p.Expect(keyword);
  if (!p.IsWord("VALUES") && !p.IsOp("(")) part.name = p.Identifier("a partition name");
  if (p.AcceptWords({"VALUES", "LESS", "THAN"})) {
    part.values_less_than = readBounds(p);
  } else if (p.Accept("VALUES")) {
    part.values = readBounds(p);
  } else if (type != "HASH" && type != "REFERENCE") {
    p.Fail(type == "LIST" ? "VALUES (...)" : "VALUES LESS THAN (...)");
  }
  readPartitionAttributes(p, t, part);
  if (p.AcceptOp("(")) {
    do {
      part.subpartitions.push_back(readPartition(p, t, t.partitioning.subtype, "SUBPARTITION"));
    } while (p.AcceptOp(","));
    p.ExpectOp(")");
  } else if (p.Accept("SUBPARTITIONS")) {
    const Token& at = p.Peek();
    p.Integer();
    p.Warn(at, "a partition's own number of subpartitions is not kept");
    if (p.AcceptWords({"STORE", "IN"})) p.NameList();
  }
  return part;
}

void readPartitioning(Parser& p, Table& t) {
  model::Partitioning& part = t.partitioning;
  part.type = p.ExpectOneOf({"RANGE", "LIST", "HASH", "REFERENCE"});
  if (part.type == "REFERENCE") {
    p.ExpectOp("(");
    part.constraint = p.Identifier("the foreign key of the reference partitioning");
    p.ExpectOp(")");
    if (p.AcceptOp("(")) {
      do {
        part.partitions.push_back(readPartition(p, t, part.type, "PARTITION"));
      } while (p.AcceptOp(","));
      p.ExpectOp(")");
    }
    return;
  }
  part.columns = p.NameList();
  if (part.type == "RANGE" && p.Accept("INTERVAL")) {
    p.ExpectOp("(");
    part.interval = p.Expression({}, "the interval");
    p.ExpectOp(")");
    if (p.AcceptWords({"STORE", "IN"})) part.interval_store_in = p.NameList();
  }
  if (part.type == "LIST" && p.Accept("AUTOMATIC")) part.automatic = true;
  if (p.Accept("SUBPARTITION")) {
    p.Expect("BY");
    part.subtype = p.ExpectOneOf({"HASH", "LIST", "RANGE"});
    part.subcolumns = p.NameList();
    if (p.Accept("SUBPARTITIONS")) {
      part.subcount = p.Count("a number of subpartitions", kMostPartitions);
      if (p.AcceptWords({"STORE", "IN"})) part.store_in = p.NameList();
    }
    if (p.AcceptWords({"SUBPARTITION", "TEMPLATE"})) {
      if (p.Peek().Is(TokenKind::Number)) {
        part.subcount = p.Count("a number of subpartitions", kMostPartitions);
      } else {
        p.ExpectOp("(");
        do {
          part.subtemplate.push_back(readPartition(p, t, part.subtype, "SUBPARTITION"));
        } while (p.AcceptOp(","));
        p.ExpectOp(")");
      }
    }
  }
  if (part.type == "HASH" && p.Accept("PARTITIONS")) {
    part.count = p.Count("a number of partitions", kMostPartitions);
    if (p.AcceptWords({"STORE", "IN"})) part.store_in = p.NameList();
    return;
  }
  p.ExpectOp("(");
  do {
    part.partitions.push_back(readPartition(p, t, part.type, "PARTITION"));
  } while (p.AcceptOp(","));
  p.ExpectOp(")");
}

// A partition of the table by name, or a fault at `at`.
Partition& partitionNamed(Parser& p, Table& t, const std::string& name, const Token& at) {
  auto& all = t.partitioning.partitions;
  auto found = std::find_if(all.begin(), all.end(), [&](const Partition& x) { return x.name == name; });
  if (found == all.end()) p.FailAt(at, "table " + t.name + " has no partition " + name);
  return *found;
}

void skipIndexUpdates(Parser& p) {
  if (p.AcceptWords({"UPDATE", "GLOBAL", "INDEXES"}) || p.AcceptWords({"UPDATE", "INDEXES"}) ||
      p.AcceptWords({"INVALIDATE", "GLOBAL", "INDEXES"})) {
    p.SkipBrackets();
  }
  p.Accept("ONLINE");
}

// A property that CREATE TABLE and ALTER TABLE both set: physical attributes and storage, logging,
// compression, cache, monitoring, parallelism, row movement.
bool readProperty(Parser& p, Table& t) {
  if (ReadSegment(p, t.segment)) return true;
  if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
    t.logging = p.Take().value;
  } else if (p.IsWord("CACHE") || p.IsWord("NOCACHE")) {
    t.cache = p.Take().value;
  } else if (p.IsWord("MONITORING") || p.IsWord("NOMONITORING")) {
    t.monitoring = p.Take().value;
  } else if (p.AcceptWords({"ENABLE", "ROW", "MOVEMENT"})) {
    t.row_movement = "ENABLE";
  } else if (p.AcceptWords({"DISABLE", "ROW", "MOVEMENT"})) {
    t.row_movement = "DISABLE";
  } else {
    return readCompression(p, t.compress) || readParallel(p, t.parallel);
  }
  return true;
}

// The table-level clauses of ALTER TABLE that set a property or move the table.
bool readAlterProperty(Parser& p, Table& t) {
  const Token& at = p.Peek();
  if (readProperty(p, t)) {
  } else if (p.Accept("MOVE")) {
    p.Accept("ONLINE");
    for (;;) {
      if (p.Accept("TABLESPACE")) {
        t.tablespace = p.Identifier("a tablespace");
      } else if (ReadSegment(p, t.segment) || readCompression(p, t.compress)) {
      } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
        t.logging = p.Take().value;
      } else if (p.Accept("LOB")) {
        readLobStorage(p, t, nullptr);
      } else if (p.Accept("ONLINE") || p.AcceptWords({"UPDATE", "INDEXES"})) {
      } else {
        break;
      }
    }
  } else if (p.AcceptWords({"MODIFY", "LOB"})) {
    const std::vector<std::string> columns = p.NameList();
    model::LobStorage changes;
    p.ExpectOp("(");
    while (!p.AcceptOp(")")) {
      if (!readLobParameters(p, changes)) p.Fail("a LOB storage parameter");
    }
    for (const std::string& name : columns) {
      auto c =
          std::find_if(t.columns.begin(), t.columns.end(), [&](const Column& k) { return k.name == name; });
      if (c == t.columns.end()) p.FailAt(at, "table " + t.name + " has no column " + name);
      for (auto [to, from] : {std::pair{&c->lob.cache, &changes.cache},
                              {&c->lob.logging, &changes.logging},
                              {&c->lob.pctversion, &changes.pctversion},
                              {&c->lob.retention, &changes.retention},
                              {&c->lob.chunk, &changes.chunk}}) {
        if (!from->empty()) *to = *from;
      }
      if (changes.cache == "CACHE" && changes.logging.empty())
        c->lob.logging.clear();  // CACHE is always logged
    }
  } else {
    return false;
  }
  return true;
}

// Partition maintenance, and the partitioning settings ALTER TABLE changes.
bool readPartitionChange(Parser& p, Table& t) {
  model::Partitioning& part = t.partitioning;
  const Token& at = p.Peek();
  if (p.AreWords({"ADD", "PARTITION"})) {
    p.Take();
    Partition added = readPartition(p, t, part.type, "PARTITION");
    part.partitions.push_back(added);
    skipIndexUpdates(p);
  } else if (p.AcceptWords({"DROP", "PARTITION"})) {
    const Token& where = p.Peek();
    const std::string name = p.Identifier("a partition name");
    Partition& gone = partitionNamed(p, t, name, where);
    part.partitions.erase(part.partitions.begin() + (&gone - part.partitions.data()));
    skipIndexUpdates(p);
  } else if (p.AcceptWords({"RENAME", "PARTITION"})) {
    const Token& where = p.Peek();
    Partition& x = partitionNamed(p, t, p.Identifier("a partition name"), where);
    p.Expect("TO");
    x.name = p.Identifier("a partition name");
  } else if (p.AcceptWords({"RENAME", "SUBPARTITION"})) {
    const Token& where = p.Peek();
    const std::string from = p.Identifier("a subpartition name");
    p.Expect("TO");
    const std::string to = p.Identifier("a subpartition name");
    bool found = false;
    for (Partition& x : part.partitions) {
      for (Partition& sub : x.subpartitions) {
        if (sub.name == from) {
          sub.name = to;
          found = true;
        }
      }
    }
    if (!found) p.FailAt(where, "table " + t.name + " has no subpartition " + from);
  } else if (p.AcceptWords({"MOVE", "PARTITION"})) {
    const Token& where = p.Peek();
    Partition& x = partitionNamed(p, t, p.Identifier("a partition name"), where);
    readPartitionAttributes(p, t, x);
    skipIndexUpdates(p);
    readPartitionAttributes(p, t, x);
  } else if (p.AcceptWords({"MOVE", "SUBPARTITION"})) {
    const Token& where = p.Peek();
    const std::string name = p.Identifier("a subpartition name");
    Partition* found = nullptr;
    for (Partition& x : part.partitions) {
      for (Partition& sub : x.subpartitions) {
        if (sub.name == name) found = &sub;
      }
    }
    if (found == nullptr) p.FailAt(where, "table " + t.name + " has no subpartition " + name);
    readPartitionAttributes(p, t, *found);
    skipIndexUpdates(p);
  } else if (p.AcceptWords({"TRUNCATE", "PARTITION"})) {
    p.Identifier("a partition name");
    p.Accept("DROP");
    p.Accept("REUSE");
    p.Accept("STORAGE");
    skipIndexUpdates(p);
  } else if (p.AcceptWords({"COALESCE", "PARTITION"})) {
    if (!part.partitions.empty()) {
      part.partitions.pop_back();
    } else if (part.count > 1) {
      --part.count;
    }
    skipIndexUpdates(p);
  } else if (p.AcceptWords({"SPLIT", "PARTITION"})) {
    const Token& where = p.Peek();
    const std::string name = p.Identifier("a partition name");
    Partition whole = partitionNamed(p, t, name, where);
    std::vector<std::string> at2, values;
    if (p.Accept("AT")) {
      at2 = readBounds(p);
    } else {
      p.Expect("VALUES");
      values = readBounds(p);
    }
    p.Expect("INTO");
    p.ExpectOp("(");
    Partition first = readPartition(p, t, "HASH", "PARTITION");
    p.ExpectOp(",");
    Partition second = readPartition(p, t, "HASH", "PARTITION");
    p.ExpectOp(")");
    skipIndexUpdates(p);
    // The first part takes the split bound (or the values split off), the second the rest.
    Partition lower = whole, upper = whole;
    lower.name = first.name;
    upper.name = second.name;
    for (Partition* x : {&lower, &upper}) {
      const Partition& given = x == &lower ? first : second;
      if (!given.tablespace.empty()) x->tablespace = given.tablespace;
      if (!given.segment.empty()) x->segment = given.segment;
      x->subpartitions.clear();
      x->lobs.clear();
    }
    if (!at2.empty()) {
      lower.values_less_than = at2;
    } else {
      lower.values = values;
      for (const std::string& v : values)
        upper.values.erase(std::remove(upper.values.begin(), upper.values.end(), v), upper.values.end());
    }
    auto& all = part.partitions;
    auto position = std::find_if(all.begin(), all.end(), [&](const Partition& x) { return x.name == name; });
    *position = upper;
    all.insert(position, lower);
  } else if (p.AcceptWords({"MODIFY", "PARTITION"})) {
    const Token& where = p.Peek();
    Partition& x = partitionNamed(p, t, p.Identifier("a partition name"), where);
    if (p.AcceptWords({"ADD", "VALUES"})) {
      for (const std::string& v : readBounds(p))
        x.values.push_back(v);
    } else if (p.AcceptWords({"DROP", "VALUES"})) {
      for (const std::string& v : readBounds(p))
        x.values.erase(std::remove(x.values.begin(), x.values.end(), v), x.values.end());
    } else if (p.AcceptWords({"ADD", "SUBPARTITION"})) {
      p.Seek(p.Mark() - 1);  // back to SUBPARTITION, which the partition reader takes
      Partition sub = readPartition(p, t, part.subtype, "SUBPARTITION");
      x.subpartitions.push_back(sub);
    } else if (p.AcceptWords({"COALESCE", "SUBPARTITION"})) {
      if (!x.subpartitions.empty()) x.subpartitions.pop_back();
    } else if (p.Accept("INDEXING")) {
      x.indexing = p.ExpectOneOf({"ON", "OFF"});
    } else {
      readPartitionAttributes(p, t, x);
    }
    skipIndexUpdates(p);
  } else if (p.AcceptWords({"SET", "INTERVAL"})) {
    p.ExpectOp("(");
    part.interval = p.IsOp(")") ? "" : p.Expression({}, "the interval");
    p.ExpectOp(")");
  } else if (p.AcceptWords({"SET", "STORE", "IN"})) {
    part.interval_store_in = p.NameList();
  } else if (p.AcceptWords({"SET", "PARTITIONING"})) {
    part.automatic = p.ExpectOneOf({"AUTOMATIC", "MANUAL"}) == "AUTOMATIC";
  } else if (p.AcceptWords({"SET", "SUBPARTITION", "TEMPLATE"})) {
    part.subtemplate.clear();
    if (p.Peek().Is(TokenKind::Number)) {
      part.subcount = p.Count("a number of subpartitions", kMostPartitions);
    } else {
      p.ExpectOp("(");
      while (!p.AcceptOp(")")) {
        part.subtemplate.push_back(readPartition(p, t, part.subtype, "SUBPARTITION"));
        p.AcceptOp(",");
      }
    }
  } else {
    (void)at;
    return false;
  }
  return true;
}

// The table's properties after its columns, in any order.
void readTableProperties(Parser& p, Table& t) {
  while (!p.AtEnd()) {
    const Token& at = p.Peek();
    if (readProperty(p, t)) {
    } else if (p.Accept("TABLESPACE")) {
      t.tablespace = p.Identifier("a tablespace");
    } else if (p.Accept("ORGANIZATION")) {
      t.organization = p.ExpectOneOf({"HEAP", "INDEX"});
      if (t.organization == "HEAP") t.organization.clear();
    } else if (p.AcceptWords({"SEGMENT", "CREATION"})) {
      p.ExpectOneOf({"IMMEDIATE", "DEFERRED"});
    } else if (p.IsWord("DEFAULT") && p.IsWord("COLLATION", 1)) {
      // The export names the default on every character column too: those columns say no more
      // than the table does.
      if (ReadDefaultCollation(p) == kDefaultCollation) {
        for (Column& c : t.columns) {
          if (c.collation == kDefaultCollation) c.collation.clear();
        }
      }
    } else if (p.AcceptWords({"ON", "COMMIT"})) {
      t.on_commit = p.ExpectOneOf({"DELETE", "PRESERVE"});
      p.Expect("ROWS");
    } else if (p.Accept("LOB")) {
      readLobStorage(p, t, nullptr);
    } else if (p.AcceptWords({"PARTITION", "BY"})) {
      readPartitioning(p, t);
    } else if (p.Accept("ROWDEPENDENCIES") || p.Accept("NOROWDEPENDENCIES") || p.Accept("RESULT_CACHE") ||
               p.Accept("INMEMORY") || p.AcceptWords({"NO", "INMEMORY"}) || p.Accept("FLASHBACK") ||
               p.Accept("PCTTHRESHOLD") || p.Accept("OVERFLOW") || p.Accept("INCLUDING") ||
               p.Accept("MAPPING") || p.Accept("ANNOTATIONS")) {
      p.Warn(at, at.value + " is not kept");
      if (p.Peek().Is(TokenKind::Number) || p.Peek().Is(TokenKind::Identifier)) {
        if (!p.IsWord("TABLESPACE") && !p.IsWord("PCTFREE")) p.Take();
      }
      p.SkipBrackets();
    } else if (p.Accept("AS")) {
      p.FailAt(at, "CREATE TABLE ... AS SELECT cannot be described: its columns come from a query");
    } else {
      p.Fail("a table property or the end of the statement");
    }
  }
}

}  // namespace

bool TakeIndexForKey(model::Constraint& k, const model::Index& x) {
  if ((k.type != "PRIMARY KEY" && k.type != "UNIQUE") || !k.state.index_name.empty()) return false;
  if (x.keys.size() < k.columns.size()) return false;
  std::vector<std::string> leading;
  for (std::size_t i = 0; i < k.columns.size(); ++i)
    leading.push_back(x.keys[i].column);
  if (!std::is_permutation(leading.begin(), leading.end(), k.columns.begin(), k.columns.end())) return false;
  k.state.index_schema = x.schema;
  k.state.index_name = x.name;
  k.state.index_tablespace.clear();  // the index has its own
  return true;
}

std::string ReadSequenceBound(Parser& p) {
  std::string value = p.Integer();
  if (value.size() >= 28) value.clear();
  return value;
}

std::string ReadDefaultCollation(Parser& p) {
  const Token& at = p.Peek();
  if (!p.AcceptWords({"DEFAULT", "COLLATION"})) return std::string();
  std::string collation = p.Identifier("a collation");
  if (collation != kDefaultCollation) p.Warn(at, "DEFAULT COLLATION " + collation + " is not kept");
  return collation;
}

bool ReadSegment(Parser& p, model::Segment& s) {
  bool read = false;
  for (;;) {
    if (p.Accept("PCTFREE")) {
      s.pctfree = p.Integer();
    } else if (p.Accept("PCTUSED")) {
      s.pctused = p.Integer();
    } else if (p.Accept("INITRANS")) {
      s.initrans = p.Integer();
    } else if (p.Accept("MAXTRANS")) {
      s.maxtrans = p.Integer();
    } else if (p.Accept("STORAGE")) {
      p.ExpectOp("(");
      while (!p.AcceptOp(")")) {
        if (p.Accept("INITIAL")) {
          s.initial = p.Size();
        } else if (p.Accept("NEXT")) {
          s.next = p.Size();
        } else if (p.Accept("MINEXTENTS")) {
          s.minextents = p.Integer();
        } else if (p.Accept("MAXEXTENTS")) {
          s.maxextents = p.Accept("UNLIMITED") ? "UNLIMITED" : p.Integer();
        } else if (p.Accept("PCTINCREASE")) {
          s.pctincrease = p.Integer();
        } else if (p.AcceptWords({"FREELIST", "GROUPS"})) {
          s.freelist_groups = p.Integer();
        } else if (p.Accept("FREELISTS")) {
          s.freelists = p.Integer();
        } else if (p.Accept("BUFFER_POOL")) {
          s.buffer_pool = p.ExpectOneOf({"DEFAULT", "KEEP", "RECYCLE"});
        } else if (p.Accept("FLASH_CACHE") || p.Accept("CELL_FLASH_CACHE")) {
          // Exadata's flash cache: DEFAULT unless tuned, and not kept.
          const Token& at = p.Peek();
          if (p.ExpectOneOf({"DEFAULT", "KEEP", "NONE"}) != "DEFAULT")
            p.Warn(at, "the flash cache setting is not kept");
        } else if (p.Accept("MAXSIZE")) {
          if (!p.Accept("UNLIMITED")) p.Size();
        } else {
          p.Fail("a storage parameter");
        }
      }
    } else {
      return read;
    }
    read = true;
  }
}

void ReadCreateTable(Parser& p, Context& c) {
  Table t;
  t.release = c.options().release;
  if (p.AcceptWords({"GLOBAL", "TEMPORARY"})) t.temporary = true;
  p.Expect("TABLE");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a table name");
  c.CheckSchema(p, name, at);
  t.schema = c.schema().name;
  t.name = name.name;
  if (c.FindTable(t.name) != nullptr) p.FailAt(at, "a second table " + t.name);
  if (p.Accept("OF")) p.FailAt(at, "object tables cannot be described");
  p.ExpectOp("(");
  do {
    if (p.IsWord("CONSTRAINT") || p.AreWords({"PRIMARY", "KEY"}) || p.AreWords({"FOREIGN", "KEY"}) ||
        (p.IsWord("UNIQUE") && p.IsOp("(", 1)) || (p.IsWord("CHECK") && p.IsOp("(", 1))) {
      t.constraints.push_back(readOutOfLine(p));
    } else if (p.AreWords({"SUPPLEMENTAL", "LOG"})) {
      p.Warn(p.Peek(), "supplemental log groups are not kept");
      p.SkipClause();
    } else {
      readColumn(p, t);
    }
  } while (p.AcceptOp(","));
  p.ExpectOp(")");
  readTableProperties(p, t);
  c.schema().tables.push_back(std::move(t));
}

void ReadAlterTable(Parser& p, Context& c) {
  p.Expect("TABLE");
  const Token& at = p.Peek();
  Table& t = c.Table(p, p.QualifiedName("a table name"), at);
  auto column = [&](const std::string& name, const Token& where) -> Column& {
    auto found =
        std::find_if(t.columns.begin(), t.columns.end(), [&](const Column& k) { return k.name == name; });
    if (found == t.columns.end()) p.FailAt(where, "table " + t.name + " has no column " + name);
    return *found;
  };
  auto constraint = [&](const std::string& name, const Token& where) {
    auto found = std::find_if(
        t.constraints.begin(), t.constraints.end(), [&](const Constraint& k) { return k.name == name; });
    if (found == t.constraints.end()) p.FailAt(where, "table " + t.name + " has no constraint " + name);
    return found;
  };
  // One ALTER TABLE may hold several clauses: ADD (...) MODIFY (...).
  while (!p.AtEnd()) {
    if (p.AreWords({"ADD", "PARTITION"}) || p.AreWords({"DROP", "PARTITION"}) ||
        p.AreWords({"RENAME", "PARTITION"}) || p.AreWords({"MODIFY", "PARTITION"}) ||
        p.AreWords({"MOVE", "PARTITION"}) || p.AreWords({"RENAME", "SUBPARTITION"}) ||
        p.AreWords({"MOVE", "SUBPARTITION"}) || p.AreWords({"MODIFY", "LOB"}) ||
        p.AreWords({"MODIFY", "DEFAULT"})) {
      if (!readPartitionChange(p, t) && !readAlterProperty(p, t)) p.Fail("an ALTER TABLE clause");
    } else if (p.Accept("ADD")) {
      if (p.IsWord("CONSTRAINT") || p.AreWords({"PRIMARY", "KEY"}) || p.AreWords({"FOREIGN", "KEY"}) ||
          p.IsWord("UNIQUE") || p.IsWord("CHECK")) {
        t.constraints.push_back(keyOfExistingTable(readOutOfLine(p), t));
        continue;
      }
      const bool bracketed = p.AcceptOp("(");
      do {
        if (p.IsWord("CONSTRAINT") || p.AreWords({"PRIMARY", "KEY"}) || p.AreWords({"FOREIGN", "KEY"})) {
          t.constraints.push_back(keyOfExistingTable(readOutOfLine(p), t));
        } else {
          readColumn(p, t);
        }
      } while (bracketed && p.AcceptOp(","));
      if (bracketed) p.ExpectOp(")");
    } else if (p.Accept("MODIFY")) {
      if (p.Accept("CONSTRAINT")) {
        const Token& where = p.Peek();
        auto k = constraint(p.Identifier("a constraint name"), where);
        readState(p, k->state);
        continue;
      }
      const bool bracketed = p.AcceptOp("(");
      do {
        const Token& where = p.Peek();
        if (p.IsWord("DROP", 1) && p.IsWord("IDENTITY", 2)) {
          column(p.Identifier("a column name"), where).identity = {};
          p.Take();
          p.Take();
          continue;
        }
        Table changed;
        ColumnWords words;
        readColumn(p, changed, &words);
        Column& now = column(changed.columns.front().name, where);
        const Column& with = changed.columns.front();
        if (words.typed) {
          now.type = with.type;
          now.length = with.length;
          now.scale = with.scale;
          now.unit = with.unit;
        }
        if (words.defaulted) {
          now.default_value = with.default_value;
          now.default_on_null = with.default_on_null;
        }
        if (with.not_null) now.not_null = true;
        if (words.nullable) now.not_null = false;
        if (with.invisible) now.invisible = true;
        if (words.visible) now.invisible = false;
        if (!with.virtual_expr.empty()) now.virtual_expr = with.virtual_expr;
        if (!with.collation.empty()) now.collation = with.collation;
        if (!with.identity.generated.empty())
          mergeIdentity(now.identity, with.identity, words.identityOptions);
      } while (bracketed && p.AcceptOp(","));
      if (bracketed) p.ExpectOp(")");
    } else if (p.Accept("DROP")) {
      if (p.Accept("CONSTRAINT")) {
        const Token& where = p.Peek();
        const std::string name = p.Identifier("a constraint name");
        // A constraint of the table, or one a column declares inline under this name.
        auto owner = std::find_if(
            t.columns.begin(), t.columns.end(), [&](const Column& k) { return k.constraint_name == name; });
        if (owner != t.columns.end() &&
            std::none_of(
                t.constraints.begin(), t.constraints.end(), [&](auto& k) { return k.name == name; })) {
          dropInlineConstraint(*owner);
        } else {
          t.constraints.erase(constraint(name, where));
        }
        p.Accept("CASCADE");
        continue;
      }
      if (p.Accept("COLUMN")) {
        const Token& where = p.Peek();
        const std::string name = p.Identifier("a column name");
        t.columns.erase(t.columns.begin() + (&column(name, where) - t.columns.data()));
        continue;
      }
      const Token& where = p.Peek();
      for (const std::string& name : p.NameList())
        t.columns.erase(t.columns.begin() + (&column(name, where) - t.columns.data()));
    } else if (p.Accept("RENAME")) {
      if (p.Accept("COLUMN")) {
        const Token& where = p.Peek();
        Column& k = column(p.Identifier("a column name"), where);
        p.Expect("TO");
        const std::string from = k.name;
        k.name = p.Identifier("a column name");
        c.RenameColumn(t, from, k.name);
      } else if (p.Accept("CONSTRAINT")) {
        const Token& where = p.Peek();
        auto k = constraint(p.Identifier("a constraint name"), where);
        p.Expect("TO");
        const std::string from = k->name;
        k->name = p.Identifier("a constraint name");
        if (t.partitioning.constraint == from) t.partitioning.constraint = k->name;
      } else {
        p.Expect("TO");
        c.RenameTable(t.name, p.Identifier("a table name"));
      }
    } else if (!readAlterProperty(p, t) && !readPartitionChange(p, t)) {
      p.Fail("an ALTER TABLE clause");
    }
  }
}

}  // namespace qarvelt::ddl
