# fiscalon_install_operators_page(FOLDER COMPONENT): the page for operators in each language, with its pictures beside it.
function(fiscalon_install_operators_page folder component)
  foreach(page IN ITEMS operator-guide operator-guide.fr)
    install(FILES ${PROJECT_SOURCE_DIR}/docs/${page}.md DESTINATION ${folder} COMPONENT ${component})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/${page} DESTINATION ${folder} COMPONENT ${component}
      FILES_MATCHING PATTERN *.png)
  endforeach()
endfunction()
