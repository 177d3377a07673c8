"""The Python module: table documents to scripts, its errors, and the statement trees."""
import json
import os
import pathlib

import pytest

import qarvelt

EXAMPLES = pathlib.Path(os.environ.get("QARVELT_EXAMPLES", pathlib.Path(__file__).parents[2] / "examples"))

TABLE = {"name": "T", "columns": [{"name": "A", "type": "NUMBER"}, {"name": "B", "type": "DATE"}]}


def with_column_b(type_name):
    return dict(TABLE, columns=[TABLE["columns"][0], {"name": "B", "type": type_name}])


# ---- documents ----------------------------------------------------------------------------------

@pytest.mark.parametrize("document", [TABLE, json.dumps(TABLE)], ids=["dict", "json"])
def test_create_takes_a_dict_or_json_text(document):
    assert qarvelt.create(document) == ["CREATE TABLE T (A NUMBER,\nB DATE)"]


def test_create_options_quote_and_keep_case():
    lower = {"schema": "app", "name": "Orders", "columns": [{"name": "id", "type": "NUMBER"}]}
    assert qarvelt.create(lower) == ["CREATE TABLE APP.ORDERS (ID NUMBER)"]
    assert qarvelt.create(lower, preserve_case=True) == ['CREATE TABLE "app"."Orders" ("id" NUMBER)']
    assert qarvelt.create(TABLE, quote_all=True) == ['CREATE TABLE "T" ("A" NUMBER,\n"B" DATE)']


def test_diff_of_the_bundled_example_matches_the_tool():
    old = json.loads((EXAMPLES / "emp_old.json").read_text())
    new = json.loads((EXAMPLES / "emp_new.json").read_text())
    script = qarvelt.diff(old, new)
    assert script.statements[:3] == [
        "ALTER TABLE SCOTT.EMP DROP (COMM)",
        "ALTER TABLE SCOTT.EMP RENAME COLUMN ENAME TO FULL_NAME",
        "ALTER TABLE SCOTT.EMP RENAME CONSTRAINT CK_EMP_SAL TO CK_SAL_POSITIVE",
    ]
    assert len(script.statements) == 16
    assert script.warnings == ["DROP COLUMN COMM of SCOTT.EMP loses the column's data"]
    text = script.text()
    assert text.startswith("ALTER TABLE SCOTT.EMP DROP (COMM);\n")
    assert text.count(";\n") == 16
    assert script.text("none").count(";") == 0
    assert script.text("/").startswith("ALTER TABLE SCOTT.EMP DROP (COMM)\n/\n")


def test_schema_documents_create_and_diff_whole_schemas():
    v1 = json.loads((EXAMPLES / "shop" / "v1.json").read_text())
    v2 = json.loads((EXAMPLES / "shop" / "v2.json").read_text())
    created = qarvelt.create(v1)
    assert created[0].startswith("CREATE SEQUENCE SHOP.CUSTOMER_SEQ")
    assert created[-1].startswith("CREATE TRIGGER SHOP.ORDERS_BI")
    script = qarvelt.diff(v1, v2)
    assert "DROP TABLE SHOP.AUDIT_LOG CASCADE CONSTRAINTS" in script.statements
    assert "table SHOP.AUDIT_LOG is dropped: its data is lost" in script.warnings
    with pytest.raises(qarvelt.RefusedError):
        qarvelt.diff(v1, v2, fail_on_data_loss=True)
    # A table document against a schema: the table is a schema of one table.
    orders = dict(v1["tables"][1], schema="shop")
    assert qarvelt.diff(orders, {"schema": "shop", "tables": [orders]}).statements == []


def test_import_ddl_gives_a_document_for_create_and_diff():
    script = """set echo on
create table t (id number(10) constraint t_pk primary key, note varchar2(40) default 'x');
create index t_note_ix on t (note);
grant select on t to public;
"""
    with pytest.raises(qarvelt.DocumentError) as refused:
        qarvelt.import_ddl(script)
    assert refused.value.where == "script.sql:4:1"
    imported = qarvelt.import_ddl(script, skip_unknown=True)
    assert imported.notes == ["script.sql:1:1: SQL*Plus line skipped: set echo on"]
    assert imported.warnings == ["script.sql:4:1: skipped: grant select on t to public"]
    table = imported.document["tables"][0]
    assert table["columns"][1]["default"] == "'x'"
    assert qarvelt.diff(imported.document, imported.document).statements == []
    assert qarvelt.create(imported.document)[0].startswith("CREATE TABLE T (ID NUMBER (10)")


def test_quoted_names_keep_their_case_through_the_document():
    imported = qarvelt.import_ddl('create table "App"."Order" ("Id" number, status number);')
    assert imported.document["preserve_case"] is True
    assert qarvelt.create(imported.document) == ['CREATE TABLE "App"."Order" ("Id" NUMBER,\nSTATUS NUMBER)']


def test_diff_with_nothing_changed_is_empty():
    script = qarvelt.diff(TABLE, TABLE)
    assert script.statements == [] and script.warnings == []


# ---- errors -------------------------------------------------------------------------------------

@pytest.mark.parametrize(
    "call, error, where, message",
    [
        (lambda: qarvelt.create("{"), qarvelt.DocumentError, "document:1:2", None),
        (lambda: qarvelt.create(dict(TABLE, colums=[])), qarvelt.DocumentError, "document", "colums"),
        (lambda: qarvelt.create(dict(TABLE, columns=[{"name": "A", "type": "NUMBR"}])), qarvelt.DocumentError,
         None, "NUMBR"),
        (lambda: qarvelt.diff(TABLE, with_column_b("BLOB")), qarvelt.NotExpressibleError, None,
         "column B changes its type from DATE to BLOB"),
        (lambda: qarvelt.diff(TABLE, dict(TABLE, columns=TABLE["columns"][:1]), fail_on_data_loss=True),
         qarvelt.RefusedError, None, "loses data"),
        (lambda: qarvelt.statement("CREATE TABEL"), qarvelt.DocumentError, None, "CREATE TABLE"),
        (lambda: qarvelt.types("12x"), qarvelt.DocumentError, "release", None),
    ],
    ids=["json-syntax", "unknown-key", "unknown-type", "needs-recreate", "data-loss", "unknown-kind", "release"],
)
def test_every_error_class_with_its_place(call, error, where, message):
    with pytest.raises(error) as raised:
        call()
    assert isinstance(raised.value, qarvelt.Error)
    if where is not None:
        assert raised.value.where.startswith(where)
    if message is not None:
        assert message in str(raised.value)
    assert raised.value.message in str(raised.value)


def test_a_document_of_another_type_is_a_type_error():
    with pytest.raises(TypeError):
        qarvelt.create(["not", "a", "table"])


def test_diff_recreates_when_allowed():
    script = qarvelt.diff(TABLE, with_column_b("BLOB"), allow_recreate=True)
    assert script.statements[0].startswith("DROP TABLE T")
    assert script.statements[1] == "CREATE TABLE T (A NUMBER,\nB BLOB)"


def test_release_options_reach_the_library():
    table = dict(TABLE, release="23ai", tablespace="USERS")
    assert qarvelt.create(table, if_exists=True)[0].startswith("CREATE TABLE IF NOT EXISTS T ")
    with pytest.raises(qarvelt.DocumentError, match="needs Oracle 23ai"):
        qarvelt.create(TABLE, if_exists=True)  # a 19c table
    moved = qarvelt.diff(table, dict(table, tablespace="DATA"), online=True)
    assert moved.statements == ["ALTER TABLE T MOVE ONLINE TABLESPACE DATA"]


# ---- statement trees ----------------------------------------------------------------------------

PCTFREE = "C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE"


def test_alter_writes_only_what_changed():
    alter = qarvelt.statement("ALTER TABLE", release="11g")
    assert alter.release == 7 and alter.kind == "ALTER TABLE"
    alter.set("SCHEMA", "SCOTT")
    alter.set("TABLE", "EMP")
    alter.set_init(PCTFREE, "10")
    assert alter.is_modified("SCHEMA") and not alter.is_modified("C_ALT_TABLE_PROPERTY;*")
    alter.set(PCTFREE, 20)
    assert alter.is_modified() and alter.is_modified("C_ALT_TABLE_PROPERTY;*")
    assert alter.statements() == ["ALTER TABLE SCOTT.EMP PCTFREE 20"]
    alter.clear()
    assert not alter.is_modified()
    assert alter.statements() == []


def test_items_paths_and_passes():
    table = qarvelt.statement("CREATE TABLE")
    columns = "C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST"
    table.set("C_RELATIONAL_TABLE;TABLE", "T")
    for name, type_name in (("A", "NUMBER"), ("B", "DATE")):
        table.add_item(columns, "CSQLCreateTable::CSubSQLItemProp", name)
        table.set(columns + ";" + name + ";COLUMN", name)
        table.set(columns + ";" + name + ";DATATYPE", type_name)
    assert table.sql() == "CREATE TABLE T (A NUMBER,\nB DATE)"
    assert columns + ";A;DATATYPE;LENGTH" in table.paths()


def test_bad_paths_name_the_nearest_ones():
    alter = qarvelt.statement("ALTER TABLE")
    with pytest.raises(qarvelt.DocumentError) as raised:
        alter.set("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFRE", "20")
    assert PCTFREE in str(raised.value)
    with pytest.raises(qarvelt.DocumentError):
        alter.add_item("SCHEMA", "CSQLCreateTable::CSubSQLItemProp", "A")


def test_catalogues():
    assert "CREATE TABLE" in qarvelt.kinds() and "ALTER INDEX" in qarvelt.kinds()
    assert "VARCHAR2" in qarvelt.types(0)
    assert "TIMESTAMP" not in qarvelt.types(0) and "TIMESTAMP" in qarvelt.types("9i")
    assert len(qarvelt.release_names()) == 13 and qarvelt.release_names()[10] == "Oracle 19c"
    assert "JSON" not in qarvelt.types("19c") and "JSON" in qarvelt.types("21c") and "BOOLEAN" in qarvelt.types(12)


def test_help_is_documented():
    for name in qarvelt.__all__:
        assert getattr(qarvelt, name).__doc__, name
