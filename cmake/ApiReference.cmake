# The HTML reference of everything a host can include: the installed headers
# of the three libraries, with the formats and decisions of docs/ as pages and
# the README as the main page. `cmake --build <build> --target docs` writes it
# to <build>/docs/html. With KAMO_WERROR an undocumented exported member or a
# broken comment fails the build, so the reference cannot fall behind.
find_package(Doxygen 1.9 OPTIONAL_COMPONENTS dot)
if(NOT DOXYGEN_FOUND)
    message(STATUS "doxygen not found: no API reference (target docs)")
    return()
endif()

get_property(kamo_public_headers GLOBAL PROPERTY KAMO_PUBLIC_HEADERS)
file(GLOB kamo_doc_pages LIST_DIRECTORIES false ${PROJECT_SOURCE_DIR}/docs/*.md)
list(SORT kamo_doc_pages)

set(DOXYGEN_PROJECT_NAME kamo_tools)
set(DOXYGEN_PROJECT_BRIEF "Node tools, shape-file import, sheet geometry and DXF workbench for the host application")
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/README.md)
set(DOXYGEN_IMAGE_PATH ${PROJECT_SOURCE_DIR}/docs/images)
# Headers are named as a host includes them: <nodetools/NodeTool.h>,
# <Kamo_base/Vex.h>.
set(DOXYGEN_FULL_PATH_NAMES YES)
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include)
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/include)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_EXTRACT_ALL NO)
set(DOXYGEN_EXTRACT_PRIVATE NO)
set(DOXYGEN_EXTRACT_STATIC YES)
set(DOXYGEN_HIDE_UNDOC_RELATIONS NO)
set(DOXYGEN_SORT_MEMBER_DOCS NO)
# One comment over a member group (///@{ ... ///@}) documents each of them.
set(DOXYGEN_DISTRIBUTE_GROUP_DOC YES)
set(DOXYGEN_SHOW_USED_FILES NO)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_IF_UNDOCUMENTED YES)
set(DOXYGEN_WARN_IF_DOC_ERROR YES)
# A sentence of contract per method, not a @param line per argument.
set(DOXYGEN_WARN_NO_PARAMDOC NO)
if(KAMO_WERROR)
    set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
endif()
set(DOXYGEN_WARN_LOGFILE ${PROJECT_BINARY_DIR}/docs/warnings.log)
# The export macros only decorate; Qt's class macros are no members.
set(DOXYGEN_ENABLE_PREPROCESSING YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED KAMO_TOOLS_EXPORT= KAMO_VIEW_EXPORT= KAMO_BASE_EXPORT= Q_OBJECT=)
set(DOXYGEN_GENERATE_TREEVIEW YES)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_DOT_IMAGE_FORMAT svg)
set(DOXYGEN_INTERACTIVE_SVG YES)
set(DOXYGEN_DOT_GRAPH_MAX_NODES 40)
set(DOXYGEN_CALL_GRAPH NO)
set(DOXYGEN_CALLER_GRAPH NO)
set(DOXYGEN_INCLUDE_GRAPH NO)
set(DOXYGEN_INCLUDED_BY_GRAPH NO)

doxygen_add_docs(docs
    ${PROJECT_SOURCE_DIR}/README.md ${kamo_doc_pages} ${kamo_public_headers}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "API reference: ${PROJECT_BINARY_DIR}/docs/html/index.html")
