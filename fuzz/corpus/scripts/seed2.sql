-- orders.sql: the order tables of the shop, as kept in the repository
set echo on
whenever sqlerror exit failure
spool orders.log

create sequence order_seq start with 1000 cache 50;

create table orders (
  id          number(12)    not null,
  customer_id number(10)    not null,
  status      varchar2(10)  default 'NEW' not null,
  placed      date          default sysdate,
  note        varchar2(4000)
)
tablespace shop_data
partition by range (placed) interval (numtoyminterval(1, 'MONTH'))
( partition p_first values less than (date '2024-01-01') );

alter table orders add constraint orders_pk primary key (id) using index tablespace shop_index;

create index orders_customer_ix on orders (customer_id) local;

/* lines of an order */
create table order_lines (
  order_id number(12) references orders (id) on delete cascade,
  line_no  number(4),
  qty      number(6) check (qty > 0),
  constraint order_lines_pk primary key (order_id, line_no)
);

create or replace trigger orders_bi
  before insert on orders
  for each row
  when (new.id is null)
begin
  :new.id := order_seq.nextval;  -- ids from the sequence; never reused
end;
/

create or replace view open_orders as
  select id, customer_id from orders where status = 'NEW';

comment on table orders is 'One row per order';
spool off
