// The styles and scripts of the pages.

        .section .rodata
        .globl vantiro_annotation_style_begin
        .globl vantiro_annotation_style_end
        .globl vantiro_annotation_script_begin
        .globl vantiro_annotation_script_end
        .globl vantiro_difference_style_begin
        .globl vantiro_difference_style_end
        .globl vantiro_plot_style_begin
        .globl vantiro_plot_style_end
vantiro_annotation_style_begin:
        .incbin "palette.css"
        .incbin "annotation.css"
vantiro_annotation_style_end:
        .byte 0
vantiro_annotation_script_begin:
        .incbin "annotation.js"
vantiro_annotation_script_end:
        .byte 0
vantiro_difference_style_begin:
        .incbin "palette.css"
        .incbin "difference.css"
vantiro_difference_style_end:
        .byte 0
vantiro_plot_style_begin:
        .incbin "palette.css"
        .incbin "plot.css"
vantiro_plot_style_end:
        .byte 0

        .section .note.GNU-stack, "", %progbits
