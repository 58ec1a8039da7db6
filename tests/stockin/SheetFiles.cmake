# The stock-in tests make their own spreadsheets: .xlsx with libxlsxwriter
# while they run, .xls with Debian's xlwt here at build time.
find_package(PkgConfig REQUIRED)
pkg_check_modules(XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)
# The system's Python, which Debian's python3-xlwt belongs to.
find_program(XLWT_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)

set(sheet_dir ${CMAKE_CURRENT_BINARY_DIR}/stockin_sheets)
set(sheet_json ${CMAKE_CURRENT_SOURCE_DIR}/stockin/supplier_sheet.json)
set(sheet_files ${sheet_dir}/supplier.xls ${sheet_dir}/encrypted.xls ${sheet_dir}/encrypted.xlsx
  ${sheet_dir}/notabook.xls)
add_custom_command(OUTPUT ${sheet_files}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${sheet_dir}
  COMMAND ${XLWT_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/stockin/make_xls.py ${sheet_json} ${sheet_dir}
  DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/stockin/make_xls.py ${sheet_json}
  COMMENT "Making the .xls sheets of the stock-in tests" VERBATIM)
add_custom_target(stockin_sheets DEPENDS ${sheet_files})
add_dependencies(test_stockin stockin_sheets)
target_link_libraries(test_stockin PRIVATE PkgConfig::XLSXWRITER)
target_compile_definitions(test_stockin PRIVATE
  CS_SHEET_DIR="${sheet_dir}" CS_SUPPLIER_SHEET="${sheet_json}")
