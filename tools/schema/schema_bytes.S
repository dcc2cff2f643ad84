// The schema as a descriptor set, with its comments.

        .section .rodata
        .balign 16
        .globl vantiro_schema_begin
        .globl vantiro_schema_end
vantiro_schema_begin:
        .incbin "schema.binpb"
vantiro_schema_end:
        .byte 0

        .section .note.GNU-stack, "", %progbits
