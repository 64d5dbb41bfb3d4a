// The kinds of node that scripts meet every day, with the attributes that they ask for.

#include "scene/NodeType.h"

namespace host::scene {

QVector<NodeTypeRow> DeformerTypeRows();

namespace {

// clang-format off
const char* const PRIMITIVE = "axis/ax double3; heightBaseline/hbl double; output/out mesh o;";

const NodeTypeRow ROWS[] = {
    {"*node", nullptr,
        "message/msg message ho; caching/cch bool h; frozen/fzn bool h; isHistoricallyInteresting/ihi byte h =2;"
        "nodeState/nds enum h {Normal:HasNoEffect:Blocking}"},
    {"*containerBase", "node", ""},
    {"*entity", "containerBase", ""},
    {"*dagNode", "entity",
        "boundingBoxMin/bbmn double3 o; boundingBoxMax/bbmx double3 o; boundingBoxSize/bbsi double3 o;"
        "matrix/m matrix o; inverseMatrix/im matrix o; worldMatrix/wm matrix mo; worldInverseMatrix/wim matrix mo;"
        "parentMatrix/pm matrix mo; parentInverseMatrix/pim matrix mo; visibility/v bool k =1; intermediateObject/io bool;"
        "template/tmp bool; ghosting/gh bool; instObjGroups/iog message mo; useObjectColor/uocol bool; objectColor/oc short 0..7;"
        "overrideEnabled/ove bool; overrideDisplayType/ovdt enum {Normal:Template:Reference};"
        "overrideLevelOfDetail/ovlod enum {Full:Bounding_Box}; overrideShading/ovs bool =1; overrideTexturing/ovt bool =1;"
        "overridePlayback/ovp bool =1; overrideVisibility/ovv bool =1; overrideRGBColors/ovrgbf bool; overrideColor/ovc byte 0..31;"
        "overrideColorRGB/ovrgb float3 c; lodVisibility/lodv bool =1; useOutlinerColor/uoc bool; outlinerColor/oclr float3 c;"
        "hiddenInOutliner/hio bool; drawOverride/do message"},
    {"transform", "dagNode",
        "translate/t double3:doubleLinear k; rotate/r double3:doubleAngle k; rotateOrder/ro enum {xyz:yzx:zxy:xzy:yxz:zyx};"
        "scale/s double3 k =1; shear/sh double3; rotatePivot/rp double3:doubleLinear; rotatePivotTranslate/rpt double3:doubleLinear;"
        "scalePivot/sp double3:doubleLinear; scalePivotTranslate/spt double3:doubleLinear; rotateAxis/ra double3:doubleAngle;"
        "inheritsTransform/it bool =1; displayHandle/dh bool; displayLocalAxis/dla bool; displayRotatePivot/drp bool;"
        "displayScalePivot/dsp bool; showManipDefault/smd enum {None:Translate:Rotate:Scale:Transform:Global_Default:Smart}"},
    {"joint", "transform",
        "jointOrient/jo double3:doubleAngle; segmentScaleCompensate/ssc bool =1; inverseScale/is double3 =1; radius/radi float b =1 0..;"
        "drawStyle/ds enum {Bone:Multi-child_as_Box:None}; side/sd enum {Center:Left:Right:None}; type/typ enum; otherType/otp string;"
        "preferredAngle/pa double3:doubleAngle; stiffness/st double3"},
    {"ikHandle", "transform", "startJoint/hsj message; endEffector/hee message; ikSolver/hsv message; inCurve/ic nurbsCurve; priority/hpr short =1; weight/wt double =1; stickiness/sti enum {Off:Sticky}; ikBlend/ikb double k =1 0..1; twist/twi doubleAngle k;"
        "poleVector/pv double3 k"},
    {"ikEffector", "transform", "handlePath/hp message m"},
    {"place3dTexture", "transform", ""},
    {"*constraint", "transform", "enableRestPosition/erp bool k =1; lockOutput/lo bool"},
    {"parentConstraint", "constraint", "target/tg message m; constraintTranslate/ct double3:doubleLinear o; constraintRotate/cr double3:doubleAngle o; interpType/int enum {NoFlip:Average:Shortest:Longest:Cache}; restTranslate/rst double3; restRotate/rsrr double3:doubleAngle"},
    {"pointConstraint", "constraint", "target/tg message m; constraintTranslate/ct double3:doubleLinear o; offset/o double3:doubleLinear k; restTranslate/rst double3"},
    {"orientConstraint", "constraint", "target/tg message m; constraintRotate/cr double3:doubleAngle o; offset/o double3:doubleAngle k; interpType/int enum {NoFlip:Average:Shortest:Longest:Cache}"},
    {"aimConstraint", "constraint", "target/tg message m; constraintRotate/cr double3:doubleAngle o; offset/o double3:doubleAngle k; aimVector/a double3; upVector/u double3; worldUpVector/wu double3; worldUpType/wut enum {scene:object:objectrotation:vector:none}"},
    {"scaleConstraint", "constraint", "target/tg message m; constraintScale/cs double3 o; offset/o double3 k =1"},
    {"poleVectorConstraint", "constraint", "target/tg message m; constraintTranslate/ct double3:doubleLinear o; offset/o double3:doubleLinear k"},
    {"*shape", "dagNode", ""},
    {"*geometryShape", "shape", "castsShadows/csh bool =1; receiveShadows/rcsh bool =1; primaryVisibility/vis bool =1; visibleInReflections/vir bool =1;"
        "visibleInRefractions/vif bool =1; motionBlur/mb bool =1"},
    {"*deformableShape", "geometryShape", ""},
    {"*controlPoint", "deformableShape", "tweak/tw bool; controlPoints/cp double3 m; weights/wt double m"},
    {"*surfaceShape", "controlPoint", "doubleSided/ds bool =1; opposite/op bool; smoothShading/smo bool =1"},
    {"mesh", "surfaceShape",
        "inMesh/i mesh; outMesh/o mesh o; worldMesh/w mesh mo; displaySmoothMesh/dsm short 0..2; smoothLevel/lev short =2; displayColors/dcol bool;"
        "displayEdges/de short; displayVertices/dv bool; displayNormal/dn bool; currentUVSet/cuvs string; pnts/pt float3 m;"
        "storedSize/tss double3 h; storedOffset/tso double3 h; storedCounts/tsc long3 h; storedMatrix/tsx matrix h"},
    {"nurbsSurface", "surfaceShape",
        "create/cr nurbsSurface; local/l nurbsSurface o; worldSpace/ws nurbsSurface mo; divisionsU/nufa short =1; divisionsV/nvfa short =1;"
        "storedSize/tss double3 h; storedOffset/tso double3 h; storedCounts/tsc long3 h; storedMatrix/tsx matrix h"},
    {"*curveShape", "controlPoint", "lineWidth/lw float =-1"},
    {"nurbsCurve", "curveShape",
        "create/cr nurbsCurve; local/l nurbsCurve o; worldSpace/ws nurbsCurve mo; degree/d long h =3; form/f enum h {Open:Closed:Periodic};"
        "spans/s long h; editPoints/eps pointArray h; storedSize/tss double3 h; storedOffset/tso double3 h; storedCounts/tsc long3 h; storedMatrix/tsx matrix h"},
    {"locator", "geometryShape", "localPosition/lp double3:doubleLinear k; localScale/los double3 k =1; worldPosition/wp double3:doubleLinear mo"},
    {"camera", "shape",
        "renderable/rnd bool =1; focalLength/fl double k =35 2.5..; nearClipPlane/ncp double k =0.1; farClipPlane/fcp double k =10000;"
        "centerOfInterest/coi double k =5; orthographic/o bool; orthographicWidth/ow double =30; horizontalFilmAperture/hfa double k =1.41732;"
        "verticalFilmAperture/vfa double k =0.94488; cameraScale/cs double =1; filmFit/ff enum {Fill:Horizontal:Vertical:Overscan} =1;"
        "depthOfField/dof bool; fStop/fs double =5.6; focusDistance/fd double =5; shutterAngle/sa double =144; displayResolution/dr bool;"
        "displayFilmGate/dfg bool; lensSqueezeRatio/lsr double =1; horizontalFilmOffset/hfo double; verticalFilmOffset/vfo double; motionBlur/mb bool;"
        "panZoomEnabled/pze bool; horizontalPan/hpn double; verticalPan/vpn double; zoom/zom double =1; overscan/ovr double =1; imageName/imn string; depthName/den string; maskName/man string;"
        "backgroundColor/col float3 c; tumblePivot/tp double3; imagePlane/ip message m; worldToEyeMatrix/wtm matrix"},
    {"*light", "shape", "color/cl float3 kc =1; intensity/in float k =1; useRayTraceShadows/urs bool; useDepthMapShadows/dms bool; shadowColor/sc float3 kc;"
        "emitDiffuse/ed bool =1; emitSpecular/es bool =1"},
    {"*renderLight", "light", ""},
    {"ambientLight", "renderLight", "ambientShade/as float k =0.45"},
    {"*nonAmbientLightShapeNode", "renderLight", "decayRate/de enum k {No_Decay:Linear:Quadratic:Cubic}"},
    {"*nonExtendedLightShapeNode", "nonAmbientLightShapeNode", ""},
    {"directionalLight", "nonExtendedLightShapeNode", "useLightPosition/ulp bool"},
    {"pointLight", "nonExtendedLightShapeNode", ""},
    {"spotLight", "nonExtendedLightShapeNode", "coneAngle/ca doubleAngle k =40 0..180; penumbraAngle/pa doubleAngle k -179.994..179.994; dropoff/dro float k 0.."},
    {"areaLight", "nonAmbientLightShapeNode", ""},
    {"volumeLight", "pointLight", ""},
    {"imagePlane", "shape", "imageName/imn string; alphaGain/ag float =1"},
    {"annotationShape", "shape", "text/txt string; displayArrow/daro bool =1; dagObjectMatrix/dom matrix m"},
    {"lattice", "controlPoint", "sDivisions/sd long =2 2..; tDivisions/td long =5 2..; uDivisions/ud long =2 2..; latticeOutput/lo lattice o"},
    {"follicle", "shape", ""},
    {"unknownDag", "dagNode", ""},

    {"time", "node", "outTime/o time k; unwarpedTime/uwt time; enableTimewarp/tws bool; timecodeProductionStart/tcp time; timecodeMayaStart/tcm time"},
    {"sequenceManager", "node", "sequences/seqts message m; outTime/ot time k"},
    {"*objectFilter", "node", ""},
    {"objectSet", "entity",
        "dagSetMembers/dsm message m; dnSetMembers/dnsm message m; memberWireframeColor/mwc short =-1 -1..7; annotation/an string;"
        "hiddenInOutliner/hio bool; verticesOnlySet/vo bool h; edgesOnlySet/eo bool h; facetsOnlySet/fo bool h"},
    {"shadingEngine", "objectSet",
        "renderableOnlySet/ro bool h =1; surfaceShader/ss message; volumeShader/vs message; displacementShader/ds message; imageShader/ims message"},
    {"character", "objectSet", ""},
    {"partition", "node", "sets/st message m; partitionType/pt short"},
    {"materialInfo", "node", "shadingGroup/sg message; material/m message; texture/t message m"},
    {"lightLinker", "node", "link/lnk message m; shadowLink/slnk message m"},
    {"renderPartition", "partition", ""},
    {"renderGlobals", "node",
        "currentRenderer/ren string; imageFormat/if short =7; imageFilePrefix/ifp string; animation/an bool; startFrame/fs time =1; endFrame/ef time =10;"
        "byFrame/bfs float =1; extensionPadding/ep short =1; periodInExt/pie enum =1 {None:Period:Underscore}; outFormatControl/ofc enum;"
        "putFrameBeforeExt/pff bool; preMel/pram string; postMel/poam string; preRenderMel/prm string; postRenderMel/pom string"},
    {"resolution", "node", "width/w long =960; height/h long =540; pixelAspect/pa float =1; deviceAspectRatio/dar float =1.777; dotsPerInch/dpi float =72;"
        "imageSizeUnits/isu enum {pixels:inches:cm:mm:points:picas}; lockDeviceAspectRatio/ldar bool; aspectLock/al bool =1"},
    {"renderQuality", "node", "shadingSamples/ss short =1; maxShadingSamples/mss short =8; edgeAntiAliasing/eaa enum {Highest:High:Medium:Low} =3"},
    {"hardwareRenderGlobals", "node", ""},
    {"renderGlobalsList", "node", "globals/g message m"},
    {"defaultRenderUtilityList", "node", "utilities/u message m"},
    {"defaultRenderingList", "node", "renders/r message m"},
    {"defaultShaderList", "node", "shaders/s message m"},
    {"defaultTextureList", "node", "textures/tx message m"},
    {"postProcessList", "node", "postProcesses/p message m"},
    {"lightList", "node", "lights/l message m"},
    {"defaultLightList", "node", "lights/l message m"},
    {"dof", "node", ""},
    {"displayLayerManager", "node", "displayLayerId/dli long m; currentDisplayLayer/cdl short"},
    {"displayLayer", "node", "drawInfo/di message o; identification/id short; displayType/dt enum k {Normal:Template:Reference}; visibility/v bool k =1;"
        "levelOfDetail/lod enum {Full:Bounding_Box}; shading/s bool =1; texturing/t bool =1; playback/p bool =1; enabled/e bool =1; color/c byte 0..31;"
        "displayOrder/do long; hideOnPlayback/hpb bool"},
    {"renderLayerManager", "node", "renderLayerId/rlmi message m; currentRenderLayer/rlc short"},
    {"renderLayer", "node", "renderInfo/ri message m; identification/rlid short; renderable/rndr bool =1; global/g bool; displayOrder/do long"},
    {"reference", "node", "fileNames/fn string m; locked/lk bool"},
    {"script", "node", "before/b string; after/a string; scriptType/st enum =1 {Demand:Open/Close:GUI_Open/Close:UI_Configuration:Software_Render:Software_Frame_Render:Scene_Configuration:Time_Changed};"
        "sourceType/stp enum {MEL:Python}"},
    {"expression", "node", "expression/ixp string; input/in double m; output/out double mo; time/tim time; alwaysEvaluate/aev bool h =1"},
    {"unknown", "node", ""},
    {"network", "node", "affectedBy/ab message m"},
    {"container", "containerBase", "isCollapsed/isc bool"},
    {"dagContainer", "transform", ""},
    {"nodeGraphEditorInfo", "node", ""},
    {"shapeEditorManager", "node", ""},
    {"poseInterpolatorManager", "node", ""},
    {"groupId", "node", "groupId/id long"},
    {"groupParts", "node", "inputGeometry/ig mesh; outputGeometry/og mesh o"},

    {"*shadingDependNode", "node", ""},
    {"surfaceShader", "shadingDependNode", "outColor/oc float3 kc; outTransparency/ot float3 kc; outGlowColor/ogc float3 kc; outMatteOpacity/omo float3 kc =1"},
    {"lambert", "shadingDependNode",
        "color/c float3 kc =0.5; transparency/it float3 kc; ambientColor/ambc float3 kc; incandescence/ic float3 kc; diffuse/dc float k =0.8 0..;"
        "translucence/tc float k 0..; translucenceDepth/trsd float k =0.5; translucenceFocus/tcf float k =0.5; normalCamera/n float3; glowIntensity/gi float k 0..1;"
        "refractions/rfc bool k; refractiveIndex/rfi float k =1; outColor/oc float3 co; outTransparency/ot float3 co; outGlowColor/ogc float3 co"},
    {"reflect", "lambert", "specularColor/sc float3 kc =0.5; reflectivity/rfl float k =0.5 0..; reflectedColor/rc float3 kc"},
    {"phong", "reflect", "cosinePower/cp float k =20 2.."},
    {"phongE", "reflect", "roughness/rn float k =0.7; highlightSize/hs float k =0.5; whiteness/wn float3 kc =0.5"},
    {"blinn", "reflect", "eccentricity/ec float k =0.3 0..1; specularRollOff/sro float k =0.7"},
    {"anisotropic", "reflect", "angle/ag double k; spreadX/dx float k =13; spreadY/dy float k =3; roughness/rn float k =0.7"},
    {"layeredShader", "shadingDependNode", "inputs/cs message m; outColor/oc float3 co"},
    {"standardSurface", "shadingDependNode",
        "base/b float k =1 0..1; baseColor/bc float3 kc =0.8; diffuseRoughness/dr float k; metalness/mt float k 0..1; specular/s float k =1; specularColor/sc float3 kc =1;"
        "specularRoughness/sr float k =0.4; specularIOR/sior float k =1.5; transmission/t float k; transmissionColor/tc float3 kc =1; subsurface/ss float k; coat/c float k;"
        "coatColor/cc float3 kc =1; emission/e float k; emissionColor/ec float3 kc =1; opacity/o float3 kc =1; thinWalled/tw bool; normalCamera/n float3;"
        "outColor/oc float3 co; outTransparency/ot float3 co"},
    {"displacementShader", "shadingDependNode", "displacement/d float k; scale/s float =1"},
    {"*texture2d", "shadingDependNode", "uvCoord/uv float2; uvFilterSize/fs float2; alphaGain/ag float k =1; alphaOffset/ao float k; colorGain/cg float3 kc =1; colorOffset/co float3 kc;"
        "defaultColor/dc float3 kc =0.5; invert/i bool; outColor/oc float3 co; outAlpha/oa float o"},
    {"file", "texture2d", "fileTextureName/ftn string; colorSpace/cs string; useFrameExtension/ufe bool; frameExtension/fe long =1; outSize/os float2 o; fileHasAlpha/fha bool o"},
    {"checker", "texture2d", "color1/c1 float3 kc =1; color2/c2 float3 kc; contrast/ct float k =1"},
    {"ramp", "texture2d", "type/t enum {V_Ramp:U_Ramp:Diagonal_Ramp:Radial_Ramp:Circular_Ramp:Box_Ramp}; interpolation/in enum =1 {None:Linear}; colorEntryPosition/cep float m; colorEntryColor/cec float3 mc"},
    {"grid", "texture2d", "lineColor/lc float3 kc =1; fillerColor/fc float3 kc; uWidth/uw float k =0.1; vWidth/vw float k =0.1"},
    {"noise", "texture2d", "threshold/th float k; amplitude/a float k =1; ratio/ra float k =0.707; frequencyRatio/fr float k =2"},
    {"fractal", "texture2d", "threshold/th float k; amplitude/a float k =1; ratio/ra float k =0.707"},
    {"cloth", "texture2d", ""},
    {"bulge", "texture2d", ""},
    {"place2dTexture", "shadingDependNode",
        "uvCoord/uv float2; coverage/c float2 k =1; translateFrame/tf float2 k; rotateFrame/rf doubleAngle k; mirrorU/mu bool; mirrorV/mv bool; stagger/s bool;"
        "wrapU/wu bool =1; wrapV/wv bool =1; repeatUV/re float2 k =1; offset/of float2 k; rotateUV/r doubleAngle k; noiseUV/n float2 k; fast/f bool;"
        "vertexUvOne/vt1 float2; vertexUvTwo/vt2 float2; vertexUvThree/vt3 float2; vertexCameraOne/vc1 float3; outUV/o float2 o; outUvFilterSize/ofs float2 o"},
    {"bump2d", "shadingDependNode", "bumpValue/bv float k; bumpDepth/bd float k =1; bumpInterp/bi enum {Bump:Tangent_Space_Normals:Object_Space_Normals}; outNormal/o float3 o"},
    {"layeredTexture", "shadingDependNode", "inputs/cs message m; outColor/oc float3 co; outAlpha/oa float o"},
    {"samplerInfo", "shadingDependNode", "facingRatio/fr float o; flippedNormal/fn bool o"},
    {"multiplyDivide", "shadingDependNode", "operation/op enum k =1 {No_operation:Multiply:Divide:Power}; input1/i1 float3 k; input2/i2 float3 k =1; output/o float3 o"},
    {"plusMinusAverage", "shadingDependNode", "operation/op enum k =1 {No_operation:Sum:Subtract:Average}; input1D/i1 float m; input3D/i3 float3 m; output1D/o1 float o; output3D/o3 float3 o"},
    {"condition", "shadingDependNode", "operation/op enum k {Equal:Not_Equal:Greater_Than:Greater_or_Equal:Less_Than:Less_or_Equal}; firstTerm/ft float k; secondTerm/st float k;"
        "colorIfTrue/ct float3 kc; colorIfFalse/cf float3 kc =1; outColor/oc float3 co"},
    {"reverse", "shadingDependNode", "input/i float3 k; output/o float3 o"},
    {"clamp", "shadingDependNode", "input/ip float3 kc; min/mn float3 kc; max/mx float3 kc; output/op float3 co"},
    {"setRange", "shadingDependNode", "value/v float3 k; min/n float3 k; max/m float3 k; oldMin/on float3 k; oldMax/om float3 k; outValue/o float3 o"},
    {"blendColors", "shadingDependNode", "blender/b float k =0.5 0..1; color1/c1 float3 kc; color2/c2 float3 kc; output/op float3 co"},
    {"remapValue", "shadingDependNode", "inputValue/i float k; inputMin/imn float; inputMax/imx float =1; outputMin/omn float; outputMax/omx float =1; outValue/ov float o"},
    {"distanceBetween", "shadingDependNode", "point1/p1 double3; point2/p2 double3; inMatrix1/im1 matrix; inMatrix2/im2 matrix; distance/d double o"},
    {"addDoubleLinear", "node", "input1/i1 doubleLinear; input2/i2 doubleLinear; output/o doubleLinear o"},
    {"multDoubleLinear", "node", "input1/i1 doubleLinear; input2/i2 doubleLinear; output/o doubleLinear o"},
    {"unitConversion", "node", "input/i double; output/o double o; conversionFactor/cf double =1"},
    {"blendWeighted", "node", "input/i double mk; weight/w double m =1; current/c long; output/o double o"},
    {"blendTwoAttr", "node", "input/i double m; attributesBlender/ab double; current/c long; output/o double o"},
    {"pairBlend", "node", "weight/w double k 0..1; inTranslate1/it1 double3:doubleLinear; inTranslate2/it2 double3:doubleLinear; inRotate1/ir1 double3:doubleAngle;"
        "inRotate2/ir2 double3:doubleAngle; outTranslate/ot double3:doubleLinear o; outRotate/or double3:doubleAngle o"},
    {"choice", "node", "selector/s short k; input/i double m; output/o double o"},
    {"multMatrix", "node", "matrixIn/i matrix m; matrixSum/o matrix o"},
    {"decomposeMatrix", "node", "inputMatrix/imat matrix; inputRotateOrder/ro enum; outputTranslate/ot double3:doubleLinear o; outputRotate/or double3:doubleAngle o; outputScale/os double3 o"},
    {"composeMatrix", "node", "inputTranslate/it double3:doubleLinear; inputRotate/ir double3:doubleAngle; inputScale/is double3 =1; outputMatrix/omat matrix o"},

    {"*animCurve", "node", "input/i time; output/o double o; keyTimeValue/ktv doubleArray h; keyTangents/ktn doubleArray h;"
        "preInfinity/pre enum {Constant:Linear:Cycle=3:Cycle_with_Offset:Oscillate}; postInfinity/pst enum {Constant:Linear:Cycle=3:Cycle_with_Offset:Oscillate};"
        "tangentType/tan enum; weightedTangents/wgt bool"},
    {"animCurveTA", "animCurve", ""}, {"animCurveTL", "animCurve", ""}, {"animCurveTT", "animCurve", ""}, {"animCurveTU", "animCurve", ""},
    {"animCurveUA", "animCurve", ""}, {"animCurveUL", "animCurve", ""}, {"animCurveUT", "animCurve", ""}, {"animCurveUU", "animCurve", ""},
    {"animLayer", "objectSet", "mute/mte bool; weight/wgt double =1"},

    {"*abstractBaseCreate", "node", ""},
    {"*polyBase", "abstractBaseCreate", ""},
    {"*polyCreator", "polyBase", PRIMITIVE},
    {"*polyPrimitive", "polyCreator", ""},
    {"polyCube", "polyPrimitive", "width/w double k =1 0..; height/h double k =1 0..; depth/d double k =1 0..; subdivisionsWidth/sw long k =1 1..; subdivisionsHeight/sh long k =1 1..;"
        "subdivisionsDepth/sd long k =1 1..; createUVs/cuv enum =4"},
    {"polySphere", "polyPrimitive", "radius/r double k =1 0..; subdivisionsAxis/sa long k =20 3..; subdivisionsHeight/sh long k =20 3..; createUVs/cuv enum =2"},
    {"polyCylinder", "polyPrimitive", "radius/r double k =1 0..; height/h double k =2 0..; subdivisionsAxis/sa long k =20 3..; subdivisionsHeight/sh long k =1 1..;"
        "subdivisionsCaps/sc long k =1 0..; createUVs/cuv enum =3; roundCap/rcp bool"},
    {"polyCone", "polyPrimitive", "radius/r double k =1 0..; height/h double k =2 0..; subdivisionsAxis/sa long k =20 3..; subdivisionsHeight/sh long k =1 1..; subdivisionsCap/sc long k 0..;"
        "createUVs/cuv enum =2; roundCap/rcp bool"},
    {"polyPlane", "polyPrimitive", "width/w double k =1 0..; height/h double k =1 0..; subdivisionsWidth/sw long k =10 1..; subdivisionsHeight/sh long k =10 1..; createUVs/cuv enum =2"},
    {"polyTorus", "polyPrimitive", "radius/r double k =1 0..; sectionRadius/sr double k =0.5 0..; twist/tw doubleAngle k; subdivisionsAxis/sa long k =20 3..; subdivisionsHeight/sh long k =20 3..;"
        "createUVs/cuv enum =1"},
    {"*primitive", "abstractBaseCreate", "axis/ax double3; pivot/p double3; startSweep/ssw doubleAngle k; endSweep/esw doubleAngle k =360; tolerance/tol double =0.01; useTolerance/ut bool; outputSurface/os nurbsSurface o; outputCurve/oc nurbsCurve o"},
    {"makeNurbSphere", "primitive", "radius/r double k =1 0..; sections/s long k =8; spans/nsp long k =4; degree/d long =3"},
    {"makeNurbCylinder", "primitive", "radius/r double k =1 0..; heightRatio/hr double k =2 0..; sections/s long k =8; spans/nsp long k =1; degree/d long =3"},
    {"makeNurbCone", "primitive", "radius/r double k =1 0..; heightRatio/hr double k =2 0..; sections/s long k =8; spans/nsp long k =1; degree/d long =3"},
    {"makeNurbTorus", "primitive", "radius/r double k =1 0..; heightRatio/hr double k =0.5 0..; sections/s long k =8; spans/nsp long k =4; degree/d long =3"},
    {"makeNurbPlane", "primitive", "width/w double k =1 0..; lengthRatio/lr double k =1 0..; patchesU/u long k =1; patchesV/v long k =1; degree/d long =3"},
    {"makeNurbCircle", "primitive", "radius/r double k =1 0..; center/c double3; normal/nr double3; sweep/sw doubleAngle k =360; degree/d long =3; sections/s long k =8; first/fp double3"},
};
// clang-format on

} // namespace

const QVector<NodeTypeRow>& NodeTypeRows()
{
    static const QVector<NodeTypeRow> rows
        = QVector<NodeTypeRow>(std::begin(ROWS), std::end(ROWS)) + DeformerTypeRows();
    return rows;
}

} // namespace host::scene
