# fiscalon_install_operators_page(FOLDER COMPONENT): the page for operators, with its pictures beside it.
function(fiscalon_install_operators_page folder component)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/operator-guide.md DESTINATION ${folder} COMPONENT ${component})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/operator-guide DESTINATION ${folder} COMPONENT ${component}
    FILES_MATCHING PATTERN *.png)
endfunction()
