# Fails when a release build lacks one of its defences. Arguments: PROGRAMS, READELF, and COMMANDS, the build's
# compile_commands.json: hardly a call of the program can be fortified, so that is asked of the command lines.
foreach(program IN LISTS PROGRAMS)
    execute_process(COMMAND ${READELF} --wide --program-headers --dynamic --dyn-syms ${program}
        OUTPUT_VARIABLE elf COMMAND_ERROR_IS_FATAL ANY)
    foreach(defence "position independent=Flags: [^\n]*PIE" "relocations read-only=GNU_RELRO"
            "no late binding=Flags: NOW" "stack not executable=GNU_STACK +[0-9a-fx ]+ RW +0x"
            "stack protector=UND __stack_chk_fail")
        string(REGEX MATCH "^([^=]+)=(.*)$" parts "${defence}")
        set(name ${CMAKE_MATCH_1})
        if(NOT elf MATCHES "${CMAKE_MATCH_2}")
            message(SEND_ERROR "${program}: ${name}: missing")
        endif()
    endforeach()
endforeach()

file(STRINGS ${COMMANDS} commands REGEX "\"command\":")
list(LENGTH commands count)
list(FILTER commands EXCLUDE REGEX "-O[23] .*-D_FORTIFY_SOURCE=2")
if(count EQUAL 0 OR commands)
    message(SEND_ERROR "Not fortified: ${commands}")
endif()
