// The style and script of the annotation page.

        .section .rodata
        .globl vantiro_annotation_style_begin
        .globl vantiro_annotation_style_end
        .globl vantiro_annotation_script_begin
        .globl vantiro_annotation_script_end
vantiro_annotation_style_begin:
        .incbin "palette.css"
        .incbin "annotation.css"
vantiro_annotation_style_end:
        .byte 0
vantiro_annotation_script_begin:
        .incbin "annotation.js"
vantiro_annotation_script_end:
        .byte 0

        .section .note.GNU-stack, "", %progbits
