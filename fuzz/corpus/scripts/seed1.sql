ALTER TABLE orders ADD (channel VARCHAR2(10) DEFAULT 'WEB');
ALTER TABLE orders MODIFY (note VARCHAR2(2000));
ALTER TABLE order_lines RENAME COLUMN qty TO quantity;
ALTER INDEX orders_customer_ix RENAME TO orders_cust_ix;
DROP VIEW open_orders;
ALTER SEQUENCE order_seq CACHE 100;
