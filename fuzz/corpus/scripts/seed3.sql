-- Oracle 23ai: IF [NOT] EXISTS, BOOLEAN, VECTOR, annotations (warned, not kept)
create table if not exists app.t23 (
  id number annotations (Display 'Id'),
  flag boolean,
  v vector(*, *),
  note varchar2(10)
);
drop table if exists app.old_t;
create table app.t2 (a number) annotations (Owner 'me');
