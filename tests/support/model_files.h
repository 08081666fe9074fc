#pragma once

#include <string>

#include "temp_folder.h"

namespace vellumark::test {

// The lines behind the head of the three files that are extracted from a model, here of a small shop.
struct ModelFiles {
    std::string tables =
        "[ORACLE],CUSTOMER,Customer\n"
        "\n"
        "[MSSQL],CUST,Customer\n"
        "[ORACLE ],ORDERS,Order\n"
        "[ ORACLE],STATUS,Status\n";
    std::string columns =
        "[ORACLE],CUSTOMER,CUST_ID,Id,I,8,0,,Y,,,,M\n"
        "[ORACLE],CUSTOMER,SEX,Sex,X,1,0,,,,,,O\n"
        "[ORACLE],CUSTOMER,BORN,Born,D,8,0,,,,,,O\n"
        "[MSSQL],CUST,ID,Id,I,8,0,,Y,,,,M\n"
        "\n"
        "[ORACLE],ORDERS,ORDER_ID,Id,I,8,0,,Y,,,,M\n"
        "[ORACLE],ORDERS,FK_CUST_ID,Buyer,I,8,0,,,customer,id,,M\n"
        "[ORACLE],ORDERS,STATUS_CODE,State,S,2,0,,,Status,Code,,O\n"
        "[ORACLE],STATUS,CODE,Code,S,2,0,,Y,,,,M\n";
    std::string values =
        "[ORACLE],CUSTOMER,SEX,M,F,,U\n"
        "[MSSQL],CUST,SEX,X\n"
        "\n"
        "[ORACLE],CUSTOMER,BORN,1999-12-31,2001-02-03\n"
        "[ORACLE],STATUS,CODE,10,20\n";

    // Writes table.txt, column.txt and permval.txt with CR LF into the folder of that name.
    void WriteTo(const TempFolder& folder, const std::string& name) const;
};

}  // namespace vellumark::test
