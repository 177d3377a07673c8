create table t (a number, b number) partition by range (a) subpartition by hash (b) subpartitions 99999999999 (partition p values less than (1));
create table u (a number) partition by hash (a) partitions 4294967296;
