-- Names as a product created them in quotes: their case is part of the name.
CREATE TABLE "App"."Order" (
  "Id" NUMBER(10,0) NOT NULL ENABLE,
  "select" VARCHAR2(20 BYTE),
  status VARCHAR2(10),
  CONSTRAINT "Order_PK" PRIMARY KEY ("Id") ENABLE
);
CREATE INDEX "App"."Order_Status" ON "App"."Order" (status);
CREATE SEQUENCE "App"."Order_Seq" START WITH 1 INCREMENT BY 1;
