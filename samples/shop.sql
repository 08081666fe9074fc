-- A small shop: six tables with foreign keys and most data types.
create table Customer (
    CustomerId    INTEGER primary key,
    FirstName     NVARCHAR(40) not null,
    LastName      NVARCHAR(40) not null,
    Email         VARCHAR(80),
    Born          DATE,
    IsMember      BOOLEAN not null,
    CreditLimit   DOUBLE,
    RegisteredAt  TIMESTAMP not null
);

create table Supplier (
    SupplierId    INTEGER primary key,
    Name          VARCHAR(60) not null unique,
    Country       CHAR(2) not null,
    OpensAt       TIME
);

create table Product (
    ProductId     INTEGER primary key,
    SupplierId    INTEGER not null references Supplier,
    Name          VARCHAR(60) not null,
    Price         NUMERIC(8,2) not null,
    Stock         SMALLINT,
    Rating        TINYINT,
    Description   TEXT,
    Picture       BLOB
);

create table CustomerOrder (
    OrderId       INTEGER primary key,
    CustomerId    INTEGER not null references Customer (CustomerId),
    OrderedAt     TIMESTAMP not null,
    Status        CHAR(10) not null,
    Weight        SINGLE
);

create table OrderLine (
    OrderId       INTEGER not null references CustomerOrder (OrderId),
    LineNumber    SMALLINT not null,
    ProductId     INTEGER not null references Product (ProductId),
    Quantity      INTEGER not null,
    UnitPrice     CURRENCY not null,
    primary key (OrderId, LineNumber)
);

create table Payment (
    PaymentId     BIGINT primary key,
    OrderId       INTEGER not null references CustomerOrder (OrderId),
    PaidOn        DATE not null,
    PaidTime      TIME,
    Amount        CURRENCY not null,
    Reference     VARCHAR(30)
);
