-- Event store of a scheduling product: times kept with their zone, spans as intervals.
set define off
prompt creating events

create table app.events (
  id           number(18)                      not null,
  happened_at  timestamp(3) with time zone     not null,   -- milliseconds
  seen_at      timestamp with local time zone,
  exported_at  timestamp (6) with time zone,               -- as DBMS_METADATA writes the default
  logged_at    timestamp(9),
  retention    interval year(4) to month,
  time_window  interval day(3) to second(2),
  lag_time     interval day to second(3),
  grace        interval day (2) to second (6),
  constraint events_pk primary key (id)
);
