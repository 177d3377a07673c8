// The description of an Oracle table: what a table document holds (see document.h), and what Create
// and Diff (script.h) turn into statements. Texts are "" when not given.
#ifndef QARVELT_MODEL_TABLE_H
#define QARVELT_MODEL_TABLE_H

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qarvelt::model {

// PCTFREE, PCTUSED, INITRANS, MAXTRANS and the STORAGE parameters, as texts ("" when not given).
struct Segment {
  std::string pctfree, pctused, initrans, maxtrans;
  std::string initial, next, minextents, maxextents, pctincrease, freelists, freelist_groups, buffer_pool;
  bool empty() const;
};

struct LobStorage {
  std::string tablespace, chunk, pctversion, segment;
  std::string cache;      // CACHE, NOCACHE or CACHE READS
  std::string logging;    // LOGGING or NOLOGGING
  std::string in_row;     // ENABLE or DISABLE (STORAGE IN ROW)
  std::string retention;  // RETENTION or ""
  bool empty() const;
};

// The identity clause of a column (Oracle 12c): GENERATED ALWAYS | BY DEFAULT [ON NULL] AS IDENTITY
// with its options; `generated` is "" for a column without one.
struct Identity {
  std::string generated;  // ALWAYS, BY DEFAULT or BY DEFAULT ON NULL
  std::string start_with, increment_by, minvalue, maxvalue, cache;
  bool nocache = false;
  std::string cycle;  // CYCLE, NOCYCLE or ""
  std::string order;  // ORDER, NOORDER or ""
};

struct Column {
  std::string name, renamed_from;
  // length holds the precision of NUMBER and FLOAT; for VECTOR (Oracle 23ai) length is the number
  // of dimensions (or *) and scale the format (FLOAT32, FLOAT64, INT8, BINARY or *).
  std::string type, length, scale, unit;
  std::string default_value;
  bool default_on_null = false;  // DEFAULT ON NULL (Oracle 12c)
  bool invisible = false;        // INVISIBLE (Oracle 12c)
  std::string virtual_expr;      // GENERATED ALWAYS AS (expr) VIRTUAL (Oracle 11g)
  std::string collation;         // COLLATE (Oracle 12c Release 2)
  Identity identity;
  bool not_null = false, unique = false, primary_key = false;
  std::string check, constraint_name;
  std::string comment;
  LobStorage lob;
};

struct ConstraintState {
  std::string deferrable;                                  // DEFERRABLE or NOT DEFERRABLE, or ""
  std::string initially;                                   // IMMEDIATE or DEFERRED, or ""
  std::string enable;                                      // ENABLE or DISABLE, or ""
  std::string validate;                                    // VALIDATE or NOVALIDATE, or ""
  std::string rely;                                        // RELY or NORELY, or ""
  std::string index_schema, index_name, index_tablespace;  // USING INDEX
};

struct Constraint {
  std::string name, renamed_from;
  std::string type;  // PRIMARY KEY, UNIQUE, FOREIGN KEY or CHECK
  std::vector<std::string> columns;
  std::string ref_schema, ref_table, on_delete;  // on_delete: CASCADE, SET NULL or ""
  std::vector<std::string> ref_columns;
  std::string check;
  ConstraintState state;
};

struct IndexKey {
  std::string column, expression, order;  // order: ASC, DESC or ""
};

// The LOB storage of one LOB column in one partition.
struct PartitionLob {
  std::string column;
  LobStorage storage;
};

struct Partition {
  std::string name, renamed_from;
  std::vector<std::string> values_less_than;  // range bounds
  std::vector<std::string> values;            // list values (DEFAULT alone for the default partition)
  std::string tablespace;
  std::string logging, compress;
  Segment segment;
  std::vector<PartitionLob> lobs;
  std::vector<Partition> subpartitions;
  std::string indexing;  // ON or OFF (Oracle 12c: whether partial indexes cover the partition), or ""
};

struct Index {
  std::string name, schema, renamed_from;
  bool unique = false, bitmap = false, reverse = false;
  bool invisible = false;  // INVISIBLE (Oracle 11g)
  bool partial = false;    // INDEXING PARTIAL (Oracle 12c)
  bool online = false;     // built ONLINE when it is created (Oracle 8i); not a property of the index
  std::vector<IndexKey> keys;
  std::string tablespace, logging, compress, parallel;
  Segment segment;
  bool local = false;
  std::vector<Partition> local_partitions;
  std::string global_type;  // RANGE or HASH for a global partitioned index, else ""
  std::vector<std::string> global_columns;
  std::vector<Partition> global_partitions;
  int global_count = 0;
};

struct Partitioning {
  std::string type;  // RANGE, HASH, LIST or REFERENCE; "" when the table is not partitioned
  std::vector<std::string> columns;
  int count = 0;  // hash partitions by number
  std::vector<std::string> store_in;
  std::string interval;                        // INTERVAL (expr) of a range partitioning (Oracle 11g)
  std::vector<std::string> interval_store_in;  // its STORE IN tablespaces
  std::string constraint;                      // the foreign key of a REFERENCE partitioning (Oracle 11g)
  bool automatic = false;                      // AUTOMATIC list partitioning (Oracle 12c Release 2)
  std::string subtype;  // RANGE, HASH or LIST subpartitioning of a range or list partitioned table
  std::vector<std::string> subcolumns;
  int subcount = 0;
  std::vector<Partition> subtemplate;
  std::vector<Partition> partitions;
};

struct Table {
  std::string schema, name;
  std::string renamed_from;  // in a schema document: the table's old name, for a declared rename
  int release = 10;          // Oracle 19c, when the document names no release
  std::string tablespace;
  Segment segment;
  std::string logging, compress, cache, monitoring, parallel, row_movement;  // keyword texts or ""
  bool temporary = false;
  std::string on_commit;     // DELETE or PRESERVE
  std::string organization;  // HEAP or INDEX; "" is HEAP
  std::string comment;
  std::vector<Column> columns;
  std::vector<Constraint> constraints;
  std::vector<Index> indexes;
  Partitioning partitioning;
};

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_TABLE_H
